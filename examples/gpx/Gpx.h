// GPX 1.1, the exchange format of waypoints, routes and tracks, as classes in the form of generated
// code. Source: the schema at http://www.topografix.com/GPX/1/1/gpx.xsd.
//
// An optional member without a value has no element; collections always exist. Objects are for one
// thread at a time.
#pragma once

#include "../common/TableClass.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Gpx {

using namespace Examples;

/// The namespace of GPX 1.1 and of all its elements; its attributes have none.
inline constexpr char16_t kNamespace[] = u"http://www.topografix.com/GPX/1/1";

using Text = std::optional<std::u16string>;

/// How a position was found.
enum FixType : std::int32_t {
    FixType_None = 0,
    FixType_2d = 1,
    FixType_3d = 2,
    FixType_Dgps = 3,
    FixType_Pps = 4,  ///< the military signal
};

/// The words of the document, in the order of `FixType`.
inline constexpr SWords<5> kFixWords{u"fix", {u"none", u"2d", u"3d", u"dgps", u"pps"}};

/// Elements of other vocabularies.
class CExtensions final : public CTableClass {
public:
    explicit CExtensions(const char16_t* elementName = u"extensions") : CTableClass(elementName)
    {
        Init();
    }

    CSmartPtr<CElementCol> m_elements;

protected:
    CTable& GetTable() const override;
};

class CLink final : public CTableClass {
public:
    explicit CLink(const char16_t* elementName = u"link") : CTableClass(elementName) { Init(); }

    std::u16string m_href;
    Text m_text;
    Text m_type;  ///< the media type

protected:
    CTable& GetTable() const override;
};

/// An address in two halves, which keeps it from those who harvest addresses.
class CEmail final : public CTableClass {
public:
    explicit CEmail(const char16_t* elementName = u"email") : CTableClass(elementName) { Init(); }

    std::u16string m_id;
    std::u16string m_domain;

protected:
    CTable& GetTable() const override;
};

class CPerson final : public CTableClass {
public:
    explicit CPerson(const char16_t* elementName = u"author") : CTableClass(elementName) { Init(); }

    Text m_name;
    CSmartPtr<CEmail> m_email;
    CSmartPtr<CLink> m_link;

protected:
    CTable& GetTable() const override;
};

class CCopyright final : public CTableClass {
public:
    explicit CCopyright(const char16_t* elementName = u"copyright") : CTableClass(elementName)
    {
        Init();
    }

    std::u16string m_author;
    std::optional<CYear> m_year;
    Text m_license;  ///< an address

protected:
    CTable& GetTable() const override;
};

/// The corners of all that a document holds, in degrees.
class CBounds final : public CTableClass {
public:
    explicit CBounds(const char16_t* elementName = u"bounds") : CTableClass(elementName) { Init(); }

    CDecimal m_minlat;
    CDecimal m_minlon;
    CDecimal m_maxlat;
    CDecimal m_maxlon;

protected:
    CTable& GetTable() const override;
};

class CMetadata final : public CTableClass {
public:
    explicit CMetadata(const char16_t* elementName = u"metadata") : CTableClass(elementName)
    {
        Init();
    }

    Text m_name;
    Text m_desc;
    CSmartPtr<CPerson> m_author;
    CSmartPtr<CCopyright> m_copyright;
    Collection<CLink> m_links;
    std::optional<CDateTime> m_time;
    Text m_keywords;
    CSmartPtr<CBounds> m_bounds;
    CSmartPtr<CExtensions> m_extensions;

protected:
    CTable& GetTable() const override;
};

/// A point: a waypoint, a point of a route or of a track.
class CWaypoint final : public CTableClass {
public:
    explicit CWaypoint(const char16_t* elementName = u"wpt") : CTableClass(elementName) { Init(); }

    CDecimal m_lat;                         ///< degrees, WGS 84; north is positive
    CDecimal m_lon;                         ///< degrees, WGS 84; east is positive
    std::optional<CDecimal> m_ele;          ///< metres
    std::optional<CDateTime> m_time;        ///< in UTC
    std::optional<CDecimal> m_magvar;       ///< degrees
    std::optional<CDecimal> m_geoidheight;  ///< metres above the ellipsoid
    Text m_name;
    Text m_cmt;
    Text m_desc;
    Text m_src;
    Collection<CLink> m_links;
    Text m_sym;
    Text m_type;
    std::optional<FixType> m_fix;
    std::optional<CBigInteger> m_sat;  ///< the number of satellites
    std::optional<CDecimal> m_hdop;
    std::optional<CDecimal> m_vdop;
    std::optional<CDecimal> m_pdop;
    std::optional<CDecimal> m_ageofdgpsdata;  ///< seconds
    std::optional<CBigInteger> m_dgpsid;      ///< 0 to 1023
    CSmartPtr<CExtensions> m_extensions;

protected:
    CTable& GetTable() const override;
};

/// What routes and tracks have in common; the schema says it twice.
class CPath : public CTableClass {
public:
    Text m_name;
    Text m_cmt;
    Text m_desc;
    Text m_src;
    Collection<CLink> m_links;
    std::optional<CBigInteger> m_number;
    Text m_type;
    CSmartPtr<CExtensions> m_extensions;

protected:
    using CTableClass::CTableClass;
};

/// A way to go.
class CRoute final : public CPath {
public:
    explicit CRoute(const char16_t* elementName = u"rte") : CPath(elementName) { Init(); }

    Collection<CWaypoint> m_points;

protected:
    CTable& GetTable() const override;
};

/// A stretch that was recorded without a break.
class CTrackSegment final : public CTableClass {
public:
    explicit CTrackSegment(const char16_t* elementName = u"trkseg") : CTableClass(elementName)
    {
        Init();
    }

    Collection<CWaypoint> m_points;
    CSmartPtr<CExtensions> m_extensions;

protected:
    CTable& GetTable() const override;
};

/// A way that was gone.
class CTrack final : public CPath {
public:
    explicit CTrack(const char16_t* elementName = u"trk") : CPath(elementName) { Init(); }

    Collection<CTrackSegment> m_segments;

protected:
    CTable& GetTable() const override;
};

/// The document.
class CGpx final : public CTableClass {
public:
    explicit CGpx(const char16_t* elementName = u"gpx") : CTableClass(elementName) { Init(); }

    std::u16string m_version;
    std::u16string m_creator;
    CSmartPtr<CMetadata> m_metadata;
    Collection<CWaypoint> m_waypoints;
    Collection<CRoute> m_routes;
    Collection<CTrack> m_tracks;
    CSmartPtr<CExtensions> m_extensions;

protected:
    CTable& GetTable() const override;
};

}  // namespace Gpx
