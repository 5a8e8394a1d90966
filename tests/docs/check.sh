#!/usr/bin/env bash
# Every block of C++ in the pages stands in a sample, line by line, whatever its indentation; every
# page is reached from the README; and no link between them leads nowhere.
set -euo pipefail
cd "$(dirname "$0")/../.."

awk '
  FNR == 1 { isPage = FILENAME ~ /\.md$/; inBlock = 0 }
  !isPage { line[++lines] = $0; next }
  /^```cpp$/ { inBlock = 1; size = 0; start = FNR; next }
  /^```/ && inBlock { inBlock = 0; if (!Stands()) { print FILENAME ":" start ": in no sample"; failed = 1 } next }
  inBlock { block[++size] = $0 }

  # Whether the block is a run of lines of the samples, all with the same blanks in front.
  function Stands(   i, j, indent)
  {
    for (i = 1; i + size - 1 <= lines; ++i) {
      indent = substr(line[i], 1, length(line[i]) - length(block[1]))
      if (indent ~ /[^ ]/)
        continue
      for (j = 1; j <= size && line[i + j - 1] == (block[j] == "" ? "" : indent block[j]); ++j)
        ;
      if (j > size)
        return 1
    }
    return 0
  }
  END { exit failed }
' docs/samples/*.h docs/samples/*.cpp docs/*.md

status=0
for page in README.md CONTRIBUTING.md SECURITY.md CHANGELOG.md docs/*.md; do
  for link in $(grep -o '](\([^)#: ]*\)[^): ]*)' "$page" | sed 's/^](//; s/[#)].*//'); do
    [ -z "$link" ] || [ -e "$(dirname "$page")/$link" ] ||
      { echo "$page: the link to $link leads nowhere"; status=1; }
  done
done
for page in docs/*.md; do
  grep -q "]($page)" README.md || { echo "README.md: no link to $page"; status=1; }
done
exit $status
