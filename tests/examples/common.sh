# What the tests of the examples share, each of which gets the program as its argument.
set -u
program=$1
directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
failures=0

fail() {
  printf '%s\n' "$*"
  failures=$((failures + 1))
}

# expect CODE ERRORS CONTENT: the exit code and standard error for a file of this content.
expect() {
  printf '%s' "$3" > "$directory/file.xml"
  errors=$("$program" "$directory/file.xml" 2>&1 >/dev/null)
  code=$?
  [ $code -eq "$1" ] && [ "$errors" = "$2" ] || fail "$3: exit code $code, standard error: $errors"
}

# prints OUTPUT: each line of the input stands in the output, as a whole.
prints() {
  while IFS= read -r line; do
    grep -qxF -- "$line" <<< "$1" || fail "the output lacks the line [$line]: $1"
  done
}

output=$("$program") || fail "the default document failed"
