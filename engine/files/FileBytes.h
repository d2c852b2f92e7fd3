// SPDX-License-Identifier: MIT
#pragma once
/// @file The bytes of an ordinary file.

#include <cstddef>
#include <cstdint>
#include <string>

namespace engine {

/// Reads an ordinary file from its beginning to its end, a block at a time. Folders, pipes and devices are
/// refused without a wait: some of them never end, others never begin.
class FileBytes
{
public:
    FileBytes() = default;
    ~FileBytes();
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    /// @param path  UTF-8; where the system knows names as bytes, any bytes.
    /// @return whether it can be read; else reason() tells why not.
    bool open(const std::string& path);

    /// Reads up to `count` bytes. @return their number; 0 at the end and when reading fails.
    std::size_t read(char* bytes, std::size_t count);

    /// Lets the next bytes be those behind an offset. @return whether the file can do that.
    bool moveTo(std::int64_t offset);

    /// Size of the file when it was opened.
    std::int64_t size() const { return m_size; }
    /// In the words of the system; empty while all is well.
    const std::string& reason() const { return m_reason; }

private:
    int m_file = -1;
    std::int64_t m_size = 0;
    std::string m_reason;
};

} // namespace engine
