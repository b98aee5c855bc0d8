// The kinds of field that are a count and an array of 16-bit values.
#pragma once

#include "AppleiAP2/records/Kinds.h"

namespace accessory {

/// The value of such a field; @ref data may be null.
template <typename Entry>
struct Counted {
    uint32_t count;
    const Entry* data;
};

/// Its place in a parcelable, which owns the memory.
template <typename Entry>
struct CountedSlot {
    uint32_t& count;
    Entry*& data;
};

/// The two getters of such a field.
template <typename Plain, typename Entry>
struct CountedGet {
    uint32_t (Plain::*count)() const;
    const Entry* (Plain::*data)() const;

    Counted<Entry> operator()(const Plain& record) const { return {(record.*count)(), (record.*data)()}; }
};

/// Its two members.
template <typename Parcelable, typename Entry>
struct CountedMember {
    uint32_t Parcelable::*count;
    Entry* Parcelable::*data;

    CountedSlot<Entry> operator()(Parcelable& record) const { return {record.*count, record.*data}; }
    Counted<Entry> operator()(const Parcelable& record) const { return {record.*count, record.*data}; }
};

/// The row of a field with a count and an array.
template <typename Kind, typename Plain, typename Entry, typename Parcelable>
constexpr auto countedField(Kind kind, uint32_t bit, const char* name, uint32_t (Plain::*getCount)() const,
                            const Entry* (Plain::*getData)() const, uint32_t Parcelable::*count,
                            Entry* Parcelable::*data) {
    using Get = CountedGet<Plain, Entry>;
    using Member = CountedMember<Parcelable, Entry>;
    return Field<Kind, Get, Member>{kind, bit, name, Get{getCount, getData}, Member{count, data}};
}

/// A count, then a block of as many 16-bit values, always. The reader owns memory even for a block of none.
struct Block {
    const char* array = nullptr;  ///< how the log names it when it cannot be allocated
    const char* name = "block";

    template <typename Entry>
    bool write(RecordWriter& writer, Counted<Entry> value) const {
        static_assert(sizeof(Entry) == sizeof(uint16_t));
        writer.int32(static_cast<int32_t>(value.count));
        writer.block(value.data, value.count);
        return true;
    }

    template <typename Entry>
    bool read(RecordReader& reader, CountedSlot<Entry> slot) const {
        return readBlock(reader, reader.uint32(), slot);
    }

    template <typename Entry>
    void print(std::string& text, Counted<Entry> value) const {
        appendList(text, value.count, value.data != nullptr,
                   [&](uint32_t i) { text += std::to_string(value.data[i]); });
    }

  protected:
    template <typename Entry>
    bool readBlock(RecordReader& reader, uint32_t count, CountedSlot<Entry> slot) const {
        slot.data = reader.allocate<Entry>(count, sizeof(Entry), array);
        if (slot.data == nullptr) return false;
        slot.count = count;
        reader.block(slot.data, count);
        return true;
    }
};

/// A count, and unless it is 0 a block of as many 16-bit values. A count of 0 leaves the array null.
struct ArrayBlock : Block {
    constexpr explicit ArrayBlock(const char* arrayName) : Block{arrayName, "arrayBlock"} {}

    template <typename Entry>
    bool write(RecordWriter& writer, Counted<Entry> value) const {
        if (value.count != 0) return Block::write(writer, value);
        writer.int32(0);
        return true;
    }

    template <typename Entry>
    bool read(RecordReader& reader, CountedSlot<Entry> slot) const {
        const uint32_t count = reader.uint32();
        return count == 0 || readBlock(reader, count, slot);
    }
};

}  // namespace accessory
