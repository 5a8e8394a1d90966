#!/usr/bin/env bash
# orders.sh PROGRAM: the example on its own document and on damaged ones.
set -u
program=$1
directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
failures=0

fail() {
  printf '%s\n' "$*"
  failures=$((failures + 1))
}

output=$("$program") || fail "the default document failed"
while IFS= read -r line; do
  grep -qxF -- "$line" <<< "$output" || fail "the output lacks [$line]: $output"
done <<'LINES'
new            1          149.99
paid           0            0.00
shipped        1           40.80
no status      1           -0.30
all            3          190.49
Read again: both agree.
The status 7 has no word
LINES

sample=$(cat "$(dirname "$0")/../../examples/orders/orders.xml")
document='Failed to process the element [orders]'
order="$document
Failed to process the element [order]"
item="$order
Failed to process the element [item]"

# damage OLD NEW MESSAGES: the sample with the first OLD replaced fails with these messages.
damage() {
  printf '%s' "${sample/"$1"/"$2"}" > "$directory/damaged.xml"
  errors=$("$program" "$directory/damaged.xml" 2>&1 >/dev/null)
  code=$?
  [ $code -eq 1 ] && [ "$errors" = "$3" ] || fail "[$1] as [$2]: exit code $code, $errors"
}

damage '</sku>' '</SKU>' 'mismatched tag at line 16'
damage ' id="1001"' '' "$order
Failed to find the required Attribute [id]"
damage '"shipped"' '"sold"' "$order
The status [sold] is not one of new, paid, shipped, cancelled"
damage '>400<' '>4294967296<' "$item
The value [4294967296] is to large to fit in a ui4"
damage '2024-03-04' '2024-02-30' "$item
Invalid Day [30] (1 <= day <= days in month"
damage '<sku>LA-7</sku>' '' "$item
Failed to find a required element [sku]"
damage 'orders xmlns="urn:example:orders"' 'orders xmlns="urn:example:other"' "$document
Failed read all the elements held within the element [orders]. The unexpected element [order] remains un processed"

exit $((failures != 0))
