// Sessions: External Accessory sessions between applications of the device and of the head unit.
#pragma once

#include <vector>

#include "simulator/device/Feature.h"

namespace accessory::simulator {

class Sessions : public Feature {
  public:
    using Feature::Feature;

    void reset();

    /// The device's application opens a session. @return its identifier.
    int open(int protocol);
    /// Closes the sessions of a protocol. @return whether there were any.
    bool close(int protocol);
    /// The device's application has sent bytes; who registered a channel for them hears of it.
    void receive(int protocol, int length);

    int count() const { return static_cast<int>(mSessions.size()); }
    /// @param index from 0.
    int identify(int index, int* protocol, int* session) const;

    /// Arguments of registerEASessionChannel(): the session, and two values that are only kept.
    int registerChannel(unsigned int session, unsigned int value1, unsigned int value2);
    int unregisterChannel(unsigned int session);
    /// The head unit's application has @p length bytes; the device's one sends as many back.
    int sendReady(unsigned int session, unsigned int length);
    /// The head unit's application is there (not 0) or not (0); then its sessions end.
    int status(unsigned int protocol, unsigned int available);

    void describe(std::string* out) const;

  private:
    struct Session {
        int protocol = 0;
        int id = 0;
        bool channel = false;
        unsigned int value1 = 0;
        unsigned int value2 = 0;
        uint64_t received = 0;  ///< bytes from the head unit
    };

    Session* find(unsigned int session);

    std::vector<Session> mSessions;
    int mOpened = 0;
};

}  // namespace accessory::simulator
