#include "tests/AppleiAP2/notifier/Event.h"

#include <ostream>

namespace accessory::test {

Event::Event(std::string operation, uint32_t code, Bytes arguments, const std::string& told, Call call)
    : operation(std::move(operation)),
      code(code),
      arguments(std::move(arguments)),
      told(this->operation + "(" + told + ")"),
      given(this->told),
      call(std::move(call)),
      stubLines({debug(this->operation + " enter")}) {}

Event& Event::proxyLogs(ExpectedLines lines) {
    proxyLines = std::move(lines);
    return *this;
}

Event& Event::stubLogs(ExpectedLines lines) {
    stubLines = std::move(lines);
    return *this;
}

Event& Event::gives(const std::string& arguments) {
    given = operation + "(" + arguments + ")";
    return *this;
}

void PrintTo(const Event& event, std::ostream* out) { *out << event.code << ' ' << event.told; }

const std::vector<Event>& allEvents() {
    static const std::vector<Event>& all = *new std::vector<Event>([] {
        std::vector<Event> events;
        for (const auto subject :
             {deviceEvents, mediaEvents, sessionEvents, pairingEvents, guidanceEvents, destinationEvents,
              applicationEvents, callEvents, communicationsEvents, carPlayEvents}) {
            for (Event& event : subject())
                events.push_back(std::move(event));
        }
        return events;
    }());
    return all;
}

}  // namespace accessory::test
