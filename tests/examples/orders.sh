#!/usr/bin/env bash
# orders.sh PROGRAM: the example on its own document and on damaged ones.
. "$(dirname "$0")/common.sh"
prints "$output" <<'LINES'
new            1          149.99
paid           0            0.00
shipped        1           40.80
no status      1           -0.30
all            3          190.49
Read again: both agree.
The status 7 has no word
LINES

sample=$(cat "$(dirname "$0")/../../examples/orders/orders.xml")
order='Failed to process the element [orders]
Failed to process the element [order]'

# damage OLD NEW MESSAGES: the sample with the first OLD replaced fails with these messages.
damage() { expect 1 "$3" "${sample/"$1"/"$2"}"; }

damage '</sku>' '</SKU>' 'mismatched tag at line 16'
damage ' id="1001"' '' "$order
Failed to find the required Attribute [id]"
damage '"shipped"' '"sold"' "$order
The status [sold] is not one of new, paid, shipped, cancelled"
damage '>400<' '>4294967296<' "$order
Failed to process the element [item]
The value [4294967296] is to large to fit in a ui4"

exit $((failures != 0))
