// A device mode record as bytes of a file or buffer: any layout, and nothing read that it lacks.
#pragma once

#include "fields.h"
#include "value.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace kpdtool {

/// The largest record that a file's own sizes can claim.
constexpr size_t kLargestRecord = 2 * 65535;

class StoredRecord {
  public:
    /// Throws ToolError, naming `source`, when the bytes do not hold the record that they claim.
    StoredRecord(const std::string& source, std::vector<BYTE> bytes);

    WORD PublicSize() const { return publicSize_; }
    WORD PrivateSize() const { return privateSize_; }
    /// As it claims, but with its whole header.
    size_t Size() const {
        return std::max<size_t>(size_t{publicSize_} + privateSize_, kHeaderSize);
    }
    /// Bytes behind the record.
    size_t Behind() const { return bytes_.size() - Size(); }
    /// The private part is this driver's, by its versions and size.
    bool HasOwnPrivate() const { return hasOwnPrivate_; }
    /// A field's bytes, none when this record has no such field.
    std::optional<Bytes> Find(const Field& field) const;
    /// False for a public field whose bit is not in the record's own dmFields: its value means
    /// nothing.
    bool Counts(const Field& field) const;
    /// The record's bytes that belong to no field.
    std::vector<BYTE> Unnamed() const;
    Bytes All() const { return bytes_; }

  private:
    size_t PlaceOf(const Field& field) const;

    std::vector<BYTE> bytes_;
    WORD publicSize_;
    WORD privateSize_;
    bool hasOwnPrivate_;
};

/// A record to be changed in place by the driver: the stored bytes, and zeros up to the largest
/// record there can be.
std::vector<BYTE> WorkingBuffer(const StoredRecord& record);
inline DEVMODEW* RecordIn(std::vector<BYTE>& buffer) {
    return reinterpret_cast<DEVMODEW*>(buffer.data());
}

/// All throw ToolError, naming the file. A file is written beside its place and then renamed, so
/// that there is never a part of one. What a file has behind its first `most` bytes stays unread.
std::vector<BYTE> ReadFileBytes(const std::string& path, size_t most);
StoredRecord ReadRecordFile(const std::string& path);
void WriteRecordFile(const std::string& path, Bytes bytes);

}  // namespace kpdtool
