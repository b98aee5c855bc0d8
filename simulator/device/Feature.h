// Feature: the base of what a simulated device can do.
#pragma once

#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "simulator/Values.h"
#include "simulator/engine/Stage.h"

namespace accessory::simulator {

/// Features are used with the world locked. Each has reset(), which brings it back to where it was when the
/// device was attached: nobody has asked for anything, nothing is under way.
class Feature {
  public:
    Feature(Stage& stage, unsigned int id) : mStage(stage), mId(id) {}
    Feature(const Feature&) = delete;
    Feature& operator=(const Feature&) = delete;

  protected:
    using Clients = AppleiAP2ManagerNotifierItf;
    ~Feature() = default;

    /// Raises an event of this device with copies of @p arguments; a std::string arrives as its characters.
    template <typename... Parameters, typename... Arguments>
    void tell(int (Clients::*event)(unsigned int, Parameters...), Arguments... arguments) {
        mStage.tell([event, id = mId, kept = std::make_tuple(std::move(arguments)...)](Clients& clients) {
            std::apply([&](const auto&... each) { (clients.*event)(id, handOver(each)...); }, kept);
        });
    }

    /// For events whose arguments need more than a copy; @p event owns them.
    void tell(Stage::Event event) { mStage.tell(std::move(event)); }

    Stage& mStage;
    const unsigned int mId;

  private:
    template <typename T>
    static decltype(auto) handOver(const T& value) {
        if constexpr (std::is_same_v<T, std::string>) {
            return value.c_str();
        } else {
            return (value);
        }
    }
};

}  // namespace accessory::simulator
