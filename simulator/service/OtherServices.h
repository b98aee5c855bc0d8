// What the simulator answers behind IAccessoryManager and IAppleUSBAudioManager.
#pragma once

#include <accessory/IAccessoryManager.h>
#include <accessory/IAppleUSBAudioManager.h>

#include "simulator/World.h"
#include "simulator/service/Request.h"

namespace accessory::simulator {

/// Any thread of the runtime calls it. The attached devices are the accessories.
class AccessoryService : public AccessoryManagerImplItf {
  public:
    /// @param world, @param report outlive the service.
    AccessoryService(World& world, Report& report) : mWorld(world), mReport(report) {}

    int32_t getDeviceCount() override;
    int32_t getFeature(unsigned int accessoryId) override;
    android::String8 getPath(unsigned int accessoryId) override;
    /// kNotFound for a path at which nothing is attached.
    int32_t getAccessoryId(const android::String8& path) override;
    int dump(const android::Vector<android::String16>& args, android::String8& result) override;

  private:
    World& mWorld;
    Report& mReport;
};

/// Any thread of the runtime calls it. The endpoints are those of attached devices whose device-mode audio
/// was started.
class USBAudioService : public AppleUSBAudioManagerImplItf {
  public:
    /// @param world, @param report outlive the service.
    USBAudioService(World& world, Report& report) : mWorld(world), mReport(report) {}

    int startup() override;
    int shutdown() override;
    int addNotifier(const android::sp<AppleUSBAudioManagerNotifierItf>& notifier) override;
    int getIds(unsigned int* ids, unsigned int* count) override;
    int start(unsigned int value) override;
    int stop(unsigned int value) override;
    int setSampleRate(unsigned int value1, unsigned int value2) override;
    int setVolume(unsigned int value1, unsigned int value2) override;
    int play(unsigned int value) override;
    int pause(unsigned int value) override;
    int dump(const android::Vector<android::String16>& args, android::String8& result) override;

  private:
    template <typename Action, typename... Arguments>
    int onEndpoint(const char* name, unsigned int endpoint, const Action& action,
                   const Arguments&... arguments) {
        return serveRequest(mWorld, mReport, showCall(name, endpoint, arguments...), [&]() -> int {
            DeviceAudio* const audio = mWorld.audio(endpoint);
            return audio != nullptr ? action(*audio) : kNoSuchAccessory;
        });
    }

    World& mWorld;
    Report& mReport;
};

}  // namespace accessory::simulator
