// Records in files.
#include "stored_record.h"

#include "core/merge.h"
#include "core/settings_file.h"
#include "tools/kpdtool/tool_error.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace kpdtool {
namespace {

namespace fs = std::filesystem;

WORD WordAt(const std::vector<BYTE>& bytes, size_t offset) {
    return static_cast<WORD>(bytes[offset] | bytes[offset + 1] << 8);
}

bool IsSettingsFile(const std::vector<BYTE>& bytes) {
    DWORD parts;
    const SettingsStatus status = ScanSettings(bytes, &parts);
    return status != SettingsStatus::kNoHeader && status != SettingsStatus::kNoKeyword;
}

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
    throw ToolError(path + ": " + reason);
}

std::string Count(size_t bytes) {
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

// A name beside the file that nothing has yet.
fs::path PartBeside(const fs::path& path) {
    std::error_code ignored;
    fs::path part;
    for (int number = 0; number == 0 || fs::exists(part, ignored); ++number) {
        part = path;
        part += ".part" + std::to_string(number);
    }
    return part;
}

bool WriteWhole(const fs::path& path, Bytes bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    return !file.fail();
}

}  // namespace

StoredRecord::StoredRecord(const std::string& source, std::vector<BYTE> bytes)
    : bytes_(std::move(bytes)) {
    if (IsSettingsFile(bytes_)) {
        Fail(source, "is a settings file, no record: see kpdtool settings --help");
    }
    if (bytes_.size() < kHeaderSize) {
        Fail(source, "has " + Count(bytes_.size()) + ", fewer than the " +
                         std::to_string(kHeaderSize) + " that every record has");
    }
    publicSize_ = WordAt(bytes_, offsetof(DEVMODEW, dmSize));
    privateSize_ = WordAt(bytes_, offsetof(DEVMODEW, dmDriverExtra));
    if (publicSize_ == 0 && privateSize_ == 0) {
        Fail(source, "claims a record of 0 bytes");
    }
    if (bytes_.size() < Size()) {
        Fail(source, "has " + Count(bytes_.size()) + ", but claims a record of " +
                         std::to_string(Size()) + " (public part " + std::to_string(publicSize_) +
                         ", private part " + std::to_string(privateSize_) + ")");
    }
    hasOwnPrivate_ = WordAt(bytes_, offsetof(DEVMODEW, dmSpecVersion)) == kSpecVersion &&
                     WordAt(bytes_, offsetof(DEVMODEW, dmDriverVersion)) == kDriverVersion &&
                     privateSize_ == kPrivateSize;
}

// The private part begins behind the record's own public part, wherever that ends.
size_t StoredRecord::PlaceOf(const Field& field) const {
    return field.IsPrivate() ? size_t{publicSize_} + field.offset - kPublicSize : field.offset;
}

std::optional<Bytes> StoredRecord::Find(const Field& field) const {
    const bool has = field.IsPrivate() ? hasOwnPrivate_ : field.offset + field.width <= publicSize_;
    return has ? std::optional(All().subspan(PlaceOf(field), field.width)) : std::nullopt;
}

bool StoredRecord::Counts(const Field& field) const {
    const DWORD fields =
        PublicField(reinterpret_cast<const DEVMODEW*>(bytes_.data()), offsetof(DEVMODEW, dmFields));
    return field.bit == 0 || (fields & field.bit) != 0;
}

std::vector<BYTE> StoredRecord::Unnamed() const {
    std::vector<bool> named(Size());
    for (const Field& field : RecordFields()) {
        if (Find(field)) {
            std::fill_n(named.begin() + static_cast<ptrdiff_t>(PlaceOf(field)), field.width, true);
        }
    }
    std::vector<BYTE> unnamed;
    for (size_t i = 0; i < Size(); ++i) {
        if (!named[i]) {
            unnamed.push_back(bytes_[i]);
        }
    }
    return unnamed;
}

std::vector<BYTE> WorkingBuffer(const StoredRecord& record) {
    std::vector<BYTE> buffer(kLargestRecord);
    const Bytes bytes = record.All().first(record.Size());
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    return buffer;
}

std::vector<BYTE> ReadFileBytes(const std::string& name, size_t most) {
    const fs::path path = PathFrom(name);
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        Fail(name, "there is no such file");
    }
    if (fs::is_directory(status)) {
        Fail(name, "is a folder, not a file");
    }
    std::vector<BYTE> bytes(most);
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.is_open() || file.bad()) {
        Fail(name, "cannot be read");
    }
    bytes.resize(static_cast<size_t>(file.gcount()));
    return bytes;
}

StoredRecord ReadRecordFile(const std::string& name) {
    // One byte more than any record shows that more lies behind it.
    return StoredRecord(name, ReadFileBytes(name, kLargestRecord + 1));
}

void WriteRecordFile(const std::string& name, Bytes bytes) {
    const fs::path path = PathFrom(name);
    const fs::path part = PartBeside(path);
    std::error_code error;
    if (WriteWhole(part, bytes)) {
        fs::rename(part, path, error);
        if (!error) {
            return;
        }
    }
    fs::remove(part, error);
    Fail(name, "cannot be written");
}

}  // namespace kpdtool
