// Memory that must live until a request is written.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace accessory::tools {

/// Keeps what the arguments of one request point to, since structures and records only borrow it.
class Keeper {
  public:
    template <typename T>
    T* keep(T value) {
        auto kept = std::make_shared<T>(std::move(value));
        mKept.push_back(kept);
        return kept.get();
    }
    const char* keepText(std::string text) { return keep(std::move(text))->c_str(); }

  private:
    std::vector<std::shared_ptr<void>> mKept;
};

}  // namespace accessory::tools
