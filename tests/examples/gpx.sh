#!/usr/bin/env bash
# gpx.sh PROGRAM: the example on its own document, on one with everything, and on damaged ones.
. "$(dirname "$0")/common.sh"
prints "$output" <<'LINES'
name:       Heiderunde über den Wilseder Berg
counts:     waypoints 4, routes 1, tracks 1, segments 2, points 150
length:     6045.2 m, 92.0 m up
first time: 2024-05-18T08:12:07Z
last time:  2024-05-18T09:54:02Z
time span:  PT1H41M55S
fixes:      none 1, 2d 3, 3d 33, dgps 16, pps 0, not given 97
extensions: 83 elements
Read again: both agree.
LINES
for form in UTF-8 UTF-16 'UTF-8, gzip' 'UTF-8, zlib' 'Fast Infoset' 'typed Fast Infoset, gzip'; do
  grep -qE "^$form +[0-9]+ +[0-9.]+ +[0-9.]+$" <<< "$output" || fail "no size of $form: $output"
done

gzip -9 < "$(dirname "$0")/../../examples/gpx/sample.gpx" > "$directory/sample.gpx.gz"
sizeless() { sed '/^form /,$d'; }
[ "$("$program" "$directory/sample.gpx.gz" | sizeless)" = "$(sizeless <<< "$output")" ] \
  || fail "sample.gpx.gz differs"

# gpx CONTENT: a document of GPX 1.1.
gpx() {
  printf '%s' "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='c'>$1</gpx>"
}

# point CONTENT: a document with one track point.
point() {
  gpx "<trk><trkseg><trkpt lat='1' lon='2'>$1</trkpt></trkseg></trk>"
}

extensions='<extensions><a xmlns="urn:a" b="&lt;"><c xmlns="urn:c"/>text</a></extensions>'
link='<link href="h"><text>t</text><type>y</type></link>'
position='<ele>1</ele><time>2024-05-18T08:12:07.250Z</time><magvar>3</magvar><geoidheight>4</geoidheight><name>n</name>'
labels="<cmt>c</cmt><desc>d</desc><src>s</src>$link$link"
quality='<fix>pps</fix><sat>5</sat><hdop>6</hdop><vdop>7</vdop><pdop>8</pdop>'
quality+='<ageofdgpsdata>9</ageofdgpsdata><dgpsid>10</dgpsid>'
all="$position$labels<sym>y</sym><type>z</type>$quality$extensions"
path="<name>n</name>$labels<number>1</number><type>t</type>$extensions"
author="<author><name>n</name><email id='i' domain='d'/>$link</author>"
copyright='<copyright author="a"><year>2026</year><license>l</license></copyright>'
bounds='<bounds minlat="1" minlon="2" maxlat="3" maxlon="4"/>'
metadata="<name>n</name><desc>d</desc>$author$copyright$link<time>2024-05-18T08:12:07+02:00</time><keywords>k</keywords>"
expect 0 '' "$(gpx "<metadata>$metadata$bounds$extensions</metadata>
<wpt lat='1' lon='2'>$all</wpt>
<rte>$path<rtept lat='1' lon='2'>$all</rtept></rte>
<trk>$path<trkseg><trkpt lat='1' lon='2'>$all</trkpt>$extensions</trkseg></trk>
$extensions")"
prints "$("$program" "$directory/file.xml")" <<'LINES'
counts:     waypoints 1, routes 1, tracks 1, segments 1, points 1
fixes:      none 0, 2d 0, 3d 0, dgps 0, pps 1, not given 0
extensions: 16 elements
LINES
expect 0 '' "$(gpx '')"

to_point='Failed to process the element [gpx]
Failed to process the element [trk]
Failed to process the element [trkseg]
Failed to process the element [trkpt]'
expect 1 "$to_point
Failed to find the required Attribute [lon]" "$(gpx '<trk><trkseg><trkpt lat="1"/></trkseg></trk>')"
expect 1 "$to_point
Failed read all the elements held within the element [trkpt]. The unexpected element [ele] remains \
un processed" "$(point '<time>2024-05-18T08:12:07Z</time><ele>1</ele>')"
expect 1 "$to_point
The fix [4d] is not one of none, 2d, 3d, dgps, pps" "$(point '<fix>4d</fix>')"

exit $((failures != 0))
