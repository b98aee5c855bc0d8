// Memory for the arrays of a request.
#pragma once

#include <cstddef>
#include <cstdlib>

namespace accessory {

/// The largest parcel that a transaction carries, in bytes; what claims to be larger cannot be true.
inline constexpr size_t kMostTransactionBytes = size_t{1024} * 1024 - size_t{8} * 1024;

/// A zero-filled array of plain values that a request brought; released at the end.
template <typename T>
class RequestBuffer {
  public:
    RequestBuffer() = default;
    ~RequestBuffer() { std::free(mValues); }  // NOLINT(cppcoreguidelines-no-malloc)
    RequestBuffer(const RequestBuffer&) = delete;
    RequestBuffer& operator=(const RequestBuffer&) = delete;

    /// Makes room for @p count values; not null for 0.
    /// @param wireBytes the least that a value takes in the request.
    /// @return false when no transaction could carry as many, or there is no memory: null then.
    bool allocate(size_t count, size_t wireBytes = sizeof(T)) {
        if (count > kMostTransactionBytes / wireBytes) return false;
        // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
        mValues = static_cast<T*>(std::calloc(count > 0 ? count : 1, sizeof(T)));
        return mValues != nullptr;
    }

    T* get() const { return mValues; }

  private:
    T* mValues = nullptr;
};

}  // namespace accessory
