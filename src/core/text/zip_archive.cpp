#include "core/text/zip_archive.h"

#include "core/text/runtime_error.h"

#include <algorithm>
#include <memory>
#include <set>
#include <zip.h>

namespace tallowmere {

namespace {

/// More files than any user has stored pages, and few enough to look through at once.
constexpr zip_int64_t kMostEntries = 20'000;

struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_source_t* source) const { zip_source_free(source); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Source = std::unique_ptr<zip_source_t, Discard>;
using Entry = std::unique_ptr<zip_file_t, Discard>;

class ZipError {
public:
    ZipError() { zip_error_init(&m_error); }
    ~ZipError() { zip_error_fini(&m_error); }
    ZipError(const ZipError&) = delete;
    ZipError& operator=(const ZipError&) = delete;
    zip_error_t* Get() { return &m_error; }
    std::string Text() { return zip_error_strerror(&m_error); }

private:
    zip_error_t m_error{};
};

[[noreturn]] void FailToMake(const std::string& why) {
    throw RuntimeError("The archive cannot be made: " + why);
}

[[noreturn]] void FailToRead(const std::string& why) {
    throw RuntimeError("The archive cannot be read: " + why);
}

std::string BytesOf(zip_source_t* source) {
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0)
        FailToMake(zip_error_strerror(zip_source_error(source)));
    std::string bytes(static_cast<std::size_t>(stat.size), '\0');
    std::size_t done = 0;
    zip_int64_t count = 0;
    while (done < bytes.size() &&
           (count = zip_source_read(source, bytes.data() + done, bytes.size() - done)) > 0)
        done += static_cast<std::size_t>(count);
    zip_source_close(source);
    if (done < bytes.size())
        FailToMake("its end is missing");
    return bytes;
}

void AddFile(zip_t* archive, const ArchivedFile& file, std::time_t time) {
    Source content(zip_source_buffer(archive, file.content.data(), file.content.size(), 0));
    if (!content)
        FailToMake(zip_strerror(archive));
    const zip_int64_t index =
        zip_file_add(archive, file.name.c_str(), content.get(), ZIP_FL_ENC_UTF_8);
    if (index < 0)
        FailToMake(zip_strerror(archive));
    static_cast<void>(content.release()); // the archive has it now
    if (zip_file_set_mtime(archive, static_cast<zip_uint64_t>(index), time, 0) != 0)
        FailToMake(zip_strerror(archive));
}

/// What an entry holds, up to `limit` bytes. What the archive says of its size is not believed.
std::string ReadEntry(zip_t* archive, zip_uint64_t index, const std::string& name,
                      std::uint64_t limit) {
    constexpr std::size_t kPiece = 64 * 1024;
    const Entry entry(zip_fopen_index(archive, index, 0));
    if (!entry)
        FailToRead(name + ": " + zip_strerror(archive));
    std::string content;
    zip_int64_t count = 0;
    do {
        const std::size_t before = content.size();
        content.resize(before + kPiece);
        count = zip_fread(entry.get(), content.data() + before, kPiece);
        if (count < 0)
            FailToRead(name + ": " + zip_error_strerror(zip_file_get_error(entry.get())));
        content.resize(before + static_cast<std::size_t>(count));
        if (content.size() > limit)
            FailToRead(name + " is larger than such a file can be");
    } while (count > 0);
    return content;
}

} // namespace

std::string WriteZip(const std::vector<ArchivedFile>& files, std::time_t time,
                     const std::function<bool()>& isWanted) {
    if (files.empty())
        FailToMake("there is nothing to put into it");
    ZipError error;
    const Source bytes(zip_source_buffer_create(nullptr, 0, 0, error.Get()));
    if (!bytes)
        FailToMake(error.Text());
    Archive archive(zip_open_from_source(bytes.get(), ZIP_TRUNCATE, error.Get()));
    if (!archive)
        FailToMake(error.Text());
    zip_source_keep(bytes.get());
    std::function<bool()> wanted = isWanted;
    const auto isCancelled = [](zip_t*, void* state) {
        return (*static_cast<std::function<bool()>*>(state))() ? 0 : 1;
    };
    if (wanted)
        zip_register_cancel_callback_with_state(archive.get(), isCancelled, nullptr, &wanted);
    for (const ArchivedFile& file : files)
        AddFile(archive.get(), file, time);
    if (zip_close(archive.get()) != 0)
        FailToMake(zip_strerror(archive.get()));
    static_cast<void>(archive.release());
    return BytesOf(bytes.get());
}

std::vector<ArchivedFile> ReadZip(std::string_view bytes, const ArchiveLimit& limit,
                                  std::uint64_t mostBytes) {
    // The library takes nothing for an archive of nothing.
    if (bytes.empty())
        FailToRead("it is empty");
    ZipError error;
    Source source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, error.Get()));
    if (!source)
        FailToRead(error.Text());
    const Archive archive(zip_open_from_source(source.get(), ZIP_RDONLY, error.Get()));
    if (!archive)
        FailToRead(error.Text());
    static_cast<void>(source.release()); // the archive has it now
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    if (count > kMostEntries)
        FailToRead("it holds more files than a backup does");

    std::vector<ArchivedFile> files;
    std::set<std::string, std::less<>> names;
    for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
        zip_stat_t stat;
        zip_stat_init(&stat);
        if (zip_stat_index(archive.get(), index, 0, &stat) != 0)
            FailToRead(zip_strerror(archive.get()));
        const std::string name = stat.valid & ZIP_STAT_NAME ? stat.name : "";
        const auto most = limit(name);
        if (!most)
            continue;
        if (!names.insert(name).second)
            FailToRead("it holds " + name + " twice");
        // Whatever else the library can unpack was not asked of it.
        if (stat.comp_method != ZIP_CM_STORE && stat.comp_method != ZIP_CM_DEFLATE)
            FailToRead(name + " is packed in an unusual way");
        files.push_back({name, ReadEntry(archive.get(), index, name, std::min(*most, mostBytes))});
        mostBytes -= files.back().content.size();
    }
    return files;
}

} // namespace tallowmere
