#!/usr/bin/env bash
# metainfo.sh PROGRAM: the example on its own document and on damaged ones.
set -u
program=$1
directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
failures=0

# expect NAME CODE ERRORS CONTENT: the exit code and standard error for a file of this content.
expect() {
  printf '%s' "$4" > "$directory/$1.xml"
  errors=$("$program" "$directory/$1.xml" 2>&1 >/dev/null)
  code=$?
  if [ $code -ne "$2" ] || [ "$errors" != "$3" ]; then
    printf '%s: exit code %s, standard error:\n%s\n' "$1" $code "$errors"
    failures=$((failures + 1))
  fi
}

output=$("$program") || { echo "the default document failed"; failures=$((failures + 1)); }
case $output in
  *'both agree'*) ;;
  *) echo "the default document: $output"; failures=$((failures + 1)) ;;
esac

element='Failed to process the element [component]'
expect complete 0 '' '<component type="x"><id>i</id><url/><name>n &#228;</name><summary>s</summary><p/></component>'
expect lacking 1 "$element
Failed to find a required element [summary]" '<component><id>i</id><name>n</name></component>'
expect disordered 1 "$element
Failed to find a required element [name]" '<component><name>n</name><id>i</id><summary>s</summary></component>'
expect malformed 1 'mismatched tag at line 2' '<component>
<id></name></component>'
expect empty 1 'no element found at line 1' ''

errors=$("$program" "$directory/missing.xml" 2>&1 >/dev/null)
[ "$errors" = "Failed to open the file [$directory/missing.xml] Error [0x00000002]" ] \
  || { echo "a missing file: $errors"; failures=$((failures + 1)); }

exit $((failures != 0))
