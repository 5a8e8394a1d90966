// A file for the time of a test.
#pragma once

#include <ZqXmlLib9/engine/Text.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

/// Makes a file of its own in the directory for temporary files, and removes it.
class CTempFile {
public:
    explicit CTempFile(std::string_view content)
    {
        std::string path = (std::filesystem::temp_directory_path() / "zqxmlXXXXXX").string();
        ::close(::mkstemp(path.data()));
        m_path = path;
        std::ofstream(m_path, std::ios::binary)
            .write(content.data(), static_cast<std::streamsize>(content.size()));
    }
    CTempFile(const CTempFile&) = delete;
    CTempFile& operator=(const CTempFile&) = delete;
    ~CTempFile() { std::filesystem::remove(m_path); }

    std::u16string GetName() const { return ZqXmlLib9::ToUtf16(m_path.string()); }
    const std::filesystem::path& GetPath() const { return m_path; }
    std::string GetContent() const
    {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path m_path;
};
