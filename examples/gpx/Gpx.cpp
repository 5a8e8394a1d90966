// The tables of the classes, in the order of the schema.

#include "Gpx.h"

#include <array>

namespace Gpx {
namespace {

/// The properties of routes and tracks, and the children of one of them.
constexpr std::array<SProperty, 9> PathWith(const SProperty& children)
{
    return {Element<&CPath::m_name>(u"name"),
            Element<&CPath::m_cmt>(u"cmt"),
            Element<&CPath::m_desc>(u"desc"),
            Element<&CPath::m_src>(u"src"),
            Children<&CPath::m_links>(u"link"),
            Element<&CPath::m_number>(u"number"),
            Element<&CPath::m_type>(u"type"),
            Child<&CPath::m_extensions>(u"extensions"),
            children};
}

}  // namespace

CTableClass::CTable& CExtensions::GetTable() const
{
    static constexpr SProperty properties[] = {OpenContent<&CExtensions::m_elements>()};
    static CTable table(u"extensionsType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CLink::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&CLink::m_href>(u"href", kUri),
        Element<&CLink::m_text>(u"text"),
        Element<&CLink::m_type>(u"type"),
    };
    static CTable table(u"linkType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CEmail::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&CEmail::m_id>(u"id"),
        Attribute<&CEmail::m_domain>(u"domain"),
    };
    static CTable table(u"emailType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CPerson::GetTable() const
{
    static constexpr SProperty properties[] = {
        Element<&CPerson::m_name>(u"name"),
        Child<&CPerson::m_email>(u"email"),
        Child<&CPerson::m_link>(u"link"),
    };
    static CTable table(u"personType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CCopyright::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&CCopyright::m_author>(u"author"),
        Element<&CCopyright::m_year>(u"year"),
        Element<&CCopyright::m_license>(u"license", kUri),
    };
    static CTable table(u"copyrightType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CBounds::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&CBounds::m_minlat>(u"minlat"),
        Attribute<&CBounds::m_minlon>(u"minlon"),
        Attribute<&CBounds::m_maxlat>(u"maxlat"),
        Attribute<&CBounds::m_maxlon>(u"maxlon"),
    };
    static CTable table(u"boundsType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CMetadata::GetTable() const
{
    static constexpr SProperty properties[] = {
        Element<&CMetadata::m_name>(u"name"),
        Element<&CMetadata::m_desc>(u"desc"),
        Child<&CMetadata::m_author>(u"author"),
        Child<&CMetadata::m_copyright>(u"copyright"),
        Children<&CMetadata::m_links>(u"link"),
        Element<&CMetadata::m_time>(u"time"),
        Element<&CMetadata::m_keywords>(u"keywords"),
        Child<&CMetadata::m_bounds>(u"bounds"),
        Child<&CMetadata::m_extensions>(u"extensions"),
    };
    static CTable table(u"metadataType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CWaypoint::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&CWaypoint::m_lat>(u"lat"),
        Attribute<&CWaypoint::m_lon>(u"lon"),
        Element<&CWaypoint::m_ele>(u"ele"),
        Element<&CWaypoint::m_time>(u"time"),
        Element<&CWaypoint::m_magvar>(u"magvar"),
        Element<&CWaypoint::m_geoidheight>(u"geoidheight"),
        Element<&CWaypoint::m_name>(u"name"),
        Element<&CWaypoint::m_cmt>(u"cmt"),
        Element<&CWaypoint::m_desc>(u"desc"),
        Element<&CWaypoint::m_src>(u"src"),
        Children<&CWaypoint::m_links>(u"link"),
        Element<&CWaypoint::m_sym>(u"sym"),
        Element<&CWaypoint::m_type>(u"type"),
        Enumeration<&CWaypoint::m_fix, kFixWords>(u"fix"),
        Element<&CWaypoint::m_sat>(u"sat"),
        Element<&CWaypoint::m_hdop>(u"hdop"),
        Element<&CWaypoint::m_vdop>(u"vdop"),
        Element<&CWaypoint::m_pdop>(u"pdop"),
        Element<&CWaypoint::m_ageofdgpsdata>(u"ageofdgpsdata"),
        Element<&CWaypoint::m_dgpsid>(u"dgpsid"),
        Child<&CWaypoint::m_extensions>(u"extensions"),
    };
    static CTable table(u"wptType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CRoute::GetTable() const
{
    static constexpr auto properties = PathWith(Children<&CRoute::m_points>(u"rtept"));
    static CTable table(u"rteType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CTrackSegment::GetTable() const
{
    static constexpr SProperty properties[] = {
        Children<&CTrackSegment::m_points>(u"trkpt"),
        Child<&CTrackSegment::m_extensions>(u"extensions"),
    };
    static CTable table(u"trksegType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CTrack::GetTable() const
{
    static constexpr auto properties = PathWith(Children<&CTrack::m_segments>(u"trkseg"));
    static CTable table(u"trkType", kNamespace, properties);
    return table;
}

CTableClass::CTable& CGpx::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&CGpx::m_version>(u"version"),   Attribute<&CGpx::m_creator>(u"creator"),
        Child<&CGpx::m_metadata>(u"metadata"),     Children<&CGpx::m_waypoints>(u"wpt"),
        Children<&CGpx::m_routes>(u"rte"),         Children<&CGpx::m_tracks>(u"trk"),
        Child<&CGpx::m_extensions>(u"extensions"),
    };
    static CTable table(u"gpxType", kNamespace, properties);
    return table;
}

}  // namespace Gpx
