#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Zip archives as bytes. What comes out of one is taken for hostile: its names are never paths,
/// and nothing is unpacked beyond what the caller allows.
namespace tallowmere {

/// One file of an archive.
struct ArchivedFile {
    std::string name, content;
    friend bool operator==(const ArchivedFile&, const ArchivedFile&) = default;
};

/// The bytes of an archive of these files, all of the given time. Throws RuntimeError when it
/// cannot be made, or when `isWanted`, which is asked now and then, says no.
std::string WriteZip(const std::vector<ArchivedFile>& files, std::time_t time,
                     const std::function<bool()>& isWanted = {});

/// How many bytes the file of a name may hold; none for a file that is not wanted.
using ArchiveLimit = std::function<std::optional<std::uint64_t>(std::string_view name)>;

/// The wanted files of an archive, in its order; others are not looked at. Throws RuntimeError with
/// what is wrong when the bytes are no archive or a damaged one, when a wanted file is there twice,
/// encrypted, packed in an unusual way or larger than its limit, or when the wanted files hold more
/// than `mostBytes` together.
std::vector<ArchivedFile> ReadZip(std::string_view bytes, const ArchiveLimit& limit,
                                  std::uint64_t mostBytes);

} // namespace tallowmere
