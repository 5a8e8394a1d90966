#include "Sizes.h"

#include <cerrno>
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

struct SForm {
    const char* name;
    XmlEncoding encoding;
    CompressionType compression;
    bool isFile;
};

constexpr SForm kForms[] = {
    {"UTF-8", XmlEncoding_UTF8, CompressionType_None, true},
    {"UTF-16", XmlEncoding_UTF16, CompressionType_None, true},
    {"UTF-8, gzip", XmlEncoding_UTF8, CompressionType_GZIP, true},
    {"UTF-8, zlib", XmlEncoding_UTF8, CompressionType_ZLIB, false},
};

void PrintSize(const SForm& form, const CGpx& gpx, const CXmlSerializationContext& context,
               const fs::path& path)
{
    const std::u16string name = path.u16string();
    CBinaryData data;
    try {
        if (form.isFile)
            gpx.ToXmlFile(name.c_str(), true, false, form.encoding, EOLType_LF, context,
                          form.compression);
        else
            data =
                gpx.ToXmlStream(true, false, form.encoding, EOLType_LF, context, form.compression);
    }
    catch (const CZqException& failure) {
        // A short document has no compressed form that is shorter.
        if (form.compression == CompressionType_None)
            throw;
        std::cout << form.name << ": " << failure << '\n';
        return;
    }
    const CSmartPtr<CGpx> again = new CGpx();
    if (form.isFile)
        again->FromXmlFile(name.c_str(), context);
    else
        again->FromXmlStream(data, context);
    const auto toText = [&](const CGpx& g) { return g.ToXml(true, false, EOLType_LF, context); };
    if (toText(*again) != toText(gpx))
        throw CZqException(u"What was read again differs from what was written");
    std::cout << std::left << std::setw(12) << form.name << std::right << std::setw(10)
              << (form.isFile ? fs::file_size(path) : data.GetLength()) << " octets, read again\n";
}

}  // namespace

void PrintSizes(const CGpx& gpx, const CXmlSerializationContext& context)
{
    const CScratchDirectory scratch;
    for (const SForm& form : kForms)
        PrintSize(form, gpx, context, scratch.GetPath() / "track.gpx");
}

}  // namespace Gpx
