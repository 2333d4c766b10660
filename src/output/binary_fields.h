#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace kirameki {

// Reads fixed-width fields in order from the bytes of a file, as raw reads of each field's
// width would: a field the bytes end inside keeps what it got, later fields stay as they
// were. Used as the visitor of a record's field list.
class FieldReader {
  public:
    FieldReader(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}
    void operator()(void* field, std::size_t width) {
        const std::size_t available = offset_ < size_ ? std::min(width, size_ - offset_) : 0;
        if (available > 0)
            std::memcpy(field, bytes_ + offset_, available);
        offset_ += width;
    }

  private:
    const std::uint8_t* bytes_;
    std::size_t size_;
    std::size_t offset_ = 0;
};

// Appends fixed-width fields in order to a byte buffer.
class FieldWriter {
  public:
    explicit FieldWriter(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}
    void operator()(const void* field, std::size_t width) {
        const auto* begin = static_cast<const std::uint8_t*>(field);
        bytes_.insert(bytes_.end(), begin, begin + width);
    }

  private:
    std::vector<std::uint8_t>& bytes_;
};

}  // namespace kirameki
