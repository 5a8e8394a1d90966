// Files for reading. Names are UTF-16 here and UTF-8 at the system call; failures are errno codes,
// 0 for none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace ZqXmlLib9 {

/// A file that is open for reading, closed at the end of its life.
class CReadFile {
public:
    CReadFile() = default;
    CReadFile(const CReadFile&) = delete;
    CReadFile& operator=(const CReadFile&) = delete;
    ~CReadFile();

    /// Opens an existing file that is no directory; it never waits, not for a pipe either.
    int Open(std::u16string_view path);

    /// The size in octets. Only a regular file has one.
    int GetSize(std::uint64_t& size) const;

    /// Reads from the start until the buffer is full or the file ends.
    /// \param count  takes the octets read
    int ReadWhole(std::span<std::byte> buffer, std::size_t& count) const;

    /// Asks the system to read ahead; nothing waits, and no buffer is in use.
    void StartRead(std::uint64_t offset, std::size_t length) const;
    /// Reads what `StartRead` asked for, until the buffer is full or the file ends.
    int FinishRead(std::uint64_t offset, std::span<std::byte> buffer, std::size_t& count) const;

private:
    int m_descriptor = -1;
};

}  // namespace ZqXmlLib9
