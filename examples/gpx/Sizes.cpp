#include "Sizes.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <string>
#include <system_error>

namespace Gpx {
namespace {

using namespace ZqXmlLib9;
namespace fs = std::filesystem;

/// A directory of its own for temporary files, removed with what is in it.
class CScratchDirectory {
public:
    CScratchDirectory()
    {
        std::string path = (fs::temp_directory_path() / "gpxXXXXXX").string();
        if (::mkdtemp(path.data()) == nullptr)
            throw std::system_error(errno, std::generic_category(), path);
        m_path = path;
    }
    CScratchDirectory(const CScratchDirectory&) = delete;
    CScratchDirectory& operator=(const CScratchDirectory&) = delete;
    ~CScratchDirectory()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    const fs::path& GetPath() const { return m_path; }

private:
    fs::path m_path;
};

enum class EKind { Text, FastInfoset, TypedFastInfoset };

struct SForm {
    const char* name;
    EKind kind;
    XmlEncoding encoding;
    CompressionType compression;
};

constexpr SForm kForms[] = {
    {"UTF-8", EKind::Text, XmlEncoding_UTF8, CompressionType_None},
    {"UTF-16", EKind::Text, XmlEncoding_UTF16, CompressionType_None},
    {"UTF-8, gzip", EKind::Text, XmlEncoding_UTF8, CompressionType_GZIP},
    {"UTF-8, zlib", EKind::Text, XmlEncoding_UTF8, CompressionType_ZLIB},
    {"Fast Infoset", EKind::FastInfoset, XmlEncoding_None, CompressionType_None},
    {"Fast Infoset, gzip", EKind::FastInfoset, XmlEncoding_None, CompressionType_GZIP},
    {"typed Fast Infoset", EKind::TypedFastInfoset, XmlEncoding_None, CompressionType_None},
    {"typed Fast Infoset, gzip", EKind::TypedFastInfoset, XmlEncoding_None, CompressionType_GZIP},
};

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// To a file, or to memory where a file has no such form.
/// \return the octets; none for a file
CBinaryData Write(const SForm& form, const CGpx& gpx, const CXmlSerializationContext& context,
                  const fs::path& path)
{
    const std::u16string file = path.u16string();
    if (form.kind != EKind::Text)
        gpx.ToFastInfosetFile(file.c_str(), FInfoDecl_None, context, form.compression);
    else if (form.compression != CompressionType_ZLIB)
        gpx.ToXmlFile(file.c_str(), /*writeHeader*/ true, /*format*/ false, form.encoding,
                      EOLType_LF, context, form.compression);
    else
        return gpx.ToXmlStream(/*writeHeader*/ true, /*format*/ false, form.encoding, EOLType_LF,
                               context, form.compression);
    return {};
}

void PrintSize(const SForm& form, const CGpx& gpx, const CXmlSerializationContext& settings,
               const fs::path& path)
{
    CXmlSerializationContext context = settings;
    if (form.kind == EKind::TypedFastInfoset)
        context.GetFIContext().SetSuggestedValues();
    std::cout << std::left << std::setw(25) << form.name << std::right;
    const Clock::time_point start = Clock::now();
    CBinaryData data;
    try {
        data = Write(form, gpx, context, path);
    }
    catch (const CZqException& failure) {
        // A short document has no compressed form that is shorter, and some values no typed one.
        if (form.compression == CompressionType_None && form.kind != EKind::TypedFastInfoset)
            throw;
        std::cout << "  " << failure << '\n';
        return;
    }
    const double written = MillisecondsSince(start);
    const bool isFile = data.GetData() == nullptr;
    const Clock::time_point middle = Clock::now();
    const CSmartPtr<CGpx> again = new CGpx();
    if (isFile)
        again->FromXmlFile(path.u16string().c_str(), context);
    else
        again->FromXmlStream(data, context);
    const double read = MillisecondsSince(middle);
    const auto toText = [&](const CGpx& g) { return g.ToXml(true, false, EOLType_LF, context); };
    if (toText(*again) != toText(gpx))
        throw CZqException(u"What was read again differs from what was written");
    std::cout << std::setw(9) << (isFile ? fs::file_size(path) : data.GetLength()) << std::fixed
              << std::setprecision(2) << std::setw(11) << written << std::setw(11) << read << '\n';
}

}  // namespace

void PrintSizes(const CGpx& gpx, const CXmlSerializationContext& context)
{
    std::cout << "form                        octets   ms write    ms read\n";
    const CScratchDirectory scratch;
    for (const SForm& form : kForms)
        PrintSize(form, gpx, context, scratch.GetPath() / "track.gpx");
}

}  // namespace Gpx
