#!/usr/bin/env bash
# metainfo.sh PROGRAM: the example on its own document and on damaged ones.
. "$(dirname "$0")/common.sh"
[[ $output == *'both agree'* ]] || fail "the default document: $output"

element='Failed to process the element [component]'
expect 0 '' '<component type="x"><id>i</id><url/><name>n &#228;</name><summary>s</summary><p/></component>'
expect 1 "$element
Failed to find a required element [name]" '<component><name>n</name><id>i</id><summary>s</summary></component>'
expect 1 'no element found at line 1' ''

exit $((failures != 0))
