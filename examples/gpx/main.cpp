// Reads a GPX document, prints a summary of it, writes it back and reads that again.
//
//     gpx [FILE]
//
// Exit code 1, with the chain of messages on standard error, if the file can't be read or isn't
// GPX 1.1.

#include "Gpx.h"
#include "Sizes.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <numbers>
#include <optional>

namespace {

using namespace ZqXmlLib9;

/// What a document holds. Points, fixes and times are those of its tracks.
struct SSummary {
    int waypoints = 0;
    int routes = 0;
    int tracks = 0;
    int segments = 0;
    int points = 0;
    std::array<int, Gpx::kFixWords.size()> pointsByFix{};  ///< by `FixType`
    int extensions = 0;   ///< elements of other vocabularies, at any depth
    double length = 0;    ///< metres along the segments
    CDecimal ascent = 0;  ///< metres, all ways up added
    std::optional<CDateTime> firstTime;
    std::optional<CDateTime> lastTime;

    friend bool operator==(const SSummary&, const SSummary&) = default;
};

int CountElements(const CElementCol& elements)
{
    int count = 0;
    for (const CElement* element : elements)
        count += 1 + CountElements(*element->GetChildElements());
    return count;
}

/// \param object  any object with extensions; null counts as one without
template <typename T>
int CountExtensions(const T* object)
{
    return object != nullptr && object->m_extensions
               ? CountElements(*object->m_extensions->m_elements)
               : 0;
}

/// The way between two points in metres, on a sphere as large as the earth (haversine formula).
double Distance(const Gpx::CWaypoint& from, const Gpx::CWaypoint& to)
{
    constexpr double kEarthRadius = 6371008.8;
    constexpr double kHalfDegree = std::numbers::pi / 360;
    // The differences are exact; the trigonometry isn't.
    const double north = std::sin((to.m_lat - from.m_lat).ToDouble() * kHalfDegree);
    const double east = std::sin((to.m_lon - from.m_lon).ToDouble() * kHalfDegree);
    const double narrowing = std::cos(from.m_lat.ToDouble() * 2 * kHalfDegree)
                             * std::cos(to.m_lat.ToDouble() * 2 * kHalfDegree);
    return 2 * kEarthRadius * std::asin(std::sqrt(north * north + narrowing * east * east));
}

/// From one time to another in hours, minutes and seconds.
CDateTimeSpan Between(const CDateTime& first, const CDateTime& last)
{
    const std::int64_t seconds = last.GetTime() - first.GetTime();
    const auto count = static_cast<std::uint64_t>(std::abs(seconds));
    CDateTimeSpan span(static_cast<std::uint32_t>(count / 3600), count / 60 % 60, count % 60);
    if (seconds < 0)
        span.Negate();
    return span;
}

/// \param previous  in the same segment, or null
void AddTrackPoint(const Gpx::CWaypoint& point, const Gpx::CWaypoint* previous, SSummary& summary)
{
    ++summary.points;
    if (previous != nullptr) {
        summary.length += Distance(*previous, point);
        if (previous->m_ele && point.m_ele && *point.m_ele > *previous->m_ele)
            summary.ascent += *point.m_ele - *previous->m_ele;
    }
    if (point.m_fix)
        ++summary.pointsByFix.at(static_cast<std::size_t>(*point.m_fix));
    summary.extensions += CountExtensions(&point);
    if (!point.m_time)
        return;
    if (!summary.firstTime)
        summary.firstTime = point.m_time;
    summary.lastTime = point.m_time;
}

SSummary Summarise(const Gpx::CGpx& gpx)
{
    SSummary summary;
    summary.waypoints = gpx.m_waypoints->GetCount();
    summary.routes = gpx.m_routes->GetCount();
    summary.tracks = gpx.m_tracks->GetCount();
    summary.extensions = CountExtensions(&gpx) + CountExtensions(gpx.m_metadata.Get());
    for (const Gpx::CWaypoint* waypoint : *gpx.m_waypoints)
        summary.extensions += CountExtensions(waypoint);
    for (const Gpx::CRoute* route : *gpx.m_routes) {
        summary.extensions += CountExtensions(route);
        for (const Gpx::CWaypoint* point : *route->m_points)
            summary.extensions += CountExtensions(point);
    }
    for (const Gpx::CTrack* track : *gpx.m_tracks) {
        summary.extensions += CountExtensions(track);
        summary.segments += track->m_segments->GetCount();
        for (const Gpx::CTrackSegment* segment : *track->m_segments) {
            summary.extensions += CountExtensions(segment);
            const Gpx::CWaypoint* previous = nullptr;
            for (const Gpx::CWaypoint* point : *segment->m_points) {
                AddTrackPoint(*point, previous, summary);
                previous = point;
            }
        }
    }
    return summary;
}

void PrintTimes(const SSummary& summary)
{
    if (!summary.firstTime) {
        std::cout << "times:      (none)\n";
        return;
    }
    const CDateTimeSpan span = Between(*summary.firstTime, *summary.lastTime);
    std::cout << "first time: " << *summary.firstTime << '\n'
              << "last time:  " << *summary.lastTime << '\n'
              << "time span:  " << span << '\n';
}

void Print(const Gpx::CGpx& gpx, const SSummary& summary)
{
    const Gpx::Text name = gpx.m_metadata ? gpx.m_metadata->m_name : std::nullopt;
    std::cout << "name:       " << ToUtf8(name.value_or(u"(none)")) << '\n'
              << "creator:    " << ToUtf8(gpx.m_creator) << '\n'
              << "counts:     waypoints " << summary.waypoints << ", routes " << summary.routes
              << ", tracks " << summary.tracks << ", segments " << summary.segments << ", points "
              << summary.points << '\n'
              << "length:     " << std::fixed << std::setprecision(1) << summary.length << " m, "
              << ToUtf8(summary.ascent.ToString(1)) << " m up\n";
    PrintTimes(summary);
    std::cout << "fixes:      ";
    int others = summary.points;
    for (std::size_t i = 0; i < summary.pointsByFix.size(); ++i) {
        std::cout << ToUtf8(Gpx::kFixWords[i]) << ' ' << summary.pointsByFix[i] << ", ";
        others -= summary.pointsByFix[i];
    }
    std::cout << "not given " << others << '\n'
              << "extensions: " << summary.extensions << " elements\n";
}

void Run(const char* path)
{
    // GPX without a prefix, as its programs write it; others get the prefixes of the library.
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(Gpx::kNamespace);
    // Not formatted: white space between the children of an extension is a part of its text, and
    // each indentation would add to it.
    const auto write = [&](const Gpx::CGpx& gpx) {
        return gpx.ToXml(/*writeHeader*/ true, /*format*/ false, EOLType_LF, context);
    };

    const CSmartPtr<Gpx::CGpx> gpx = new Gpx::CGpx();
    gpx->FromXmlFile(ToUtf16(path).c_str(), context);
    const SSummary summary = Summarise(*gpx);
    Print(*gpx, summary);

    const std::u16string text = write(*gpx);
    std::cout << "\nWritten back: " << ToUtf8(text).size() << " octets of XML.\n";

    const CSmartPtr<Gpx::CGpx> again = new Gpx::CGpx();
    again->FromXml(text.c_str(), context);
    if (Summarise(*again) != summary || write(*again) != text)
        throw CZqException(u"What was read again differs from what was read first");
    std::cout << "Read again: both agree.\n\n";
    Gpx::PrintSizes(*gpx, context);
}

}  // namespace

int main(int argc, char** argv)
{
    Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR);
    try {
        Run(argc > 1 ? argv[1] : DEFAULT_DOCUMENT);
    }
    catch (const CZqException& failure) {
        std::cerr << failure << '\n';
        return EXIT_FAILURE;
    }
    catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
