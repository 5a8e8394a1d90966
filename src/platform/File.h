// Files. Names are UTF-16 here and UTF-8 at the system call; failures are errno codes, 0 for none.
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

/// A file that is open for writing. One write at a time.
///
/// A regular file that isn't closed with success is emptied: no part of a document stays behind
/// that could be taken for the whole of it.
///
/// Writes go to the page cache, which the system writes out while the program goes on: so the
/// octets are taken before `StartWrite` returns, and their outcome is known to `FinishWrite`. What
/// the system can write no earlier than at the end of the file's life is known to `Close`.
class CWriteFile {
public:
    CWriteFile() = default;
    CWriteFile(const CWriteFile&) = delete;
    CWriteFile& operator=(const CWriteFile&) = delete;
    ~CWriteFile();

    /// Creates a file, or empties the one that is there, which is the last thing that can fail. It
    /// never waits: a pipe that nobody reads is a failure.
    int Open(std::u16string_view path);

    /// Begins to write all of the octets at an offset; what cannot seek takes them where it stands.
    void StartWrite(std::uint64_t offset, std::span<const std::byte> data);
    /// The outcome of the write begun last.
    /// \param count  takes its octets; 0 where none was begun
    int FinishWrite(std::size_t& count);

    /// Closes the file, whatever the outcome is. Without an open file there is nothing to fail.
    int Close();
    /// Closes what can't be written to its end.
    void Discard();

private:
    int m_descriptor = -1;
    bool m_canSeek = true;
    bool m_isRegular = false;
    std::size_t m_written = 0;
    int m_error = 0;
};

}  // namespace ZqXmlLib9
