#include "tests/AppleiAP2/manager/Example.h"

#include <ostream>

namespace accessory::test {

Bytes managerRequest(const Bytes& arguments) {
    return parcel({token(u"accessory.AppleiAP2Manager"), arguments});
}

Bytes replied(int32_t result, const Bytes& values) { return parcel({i32(0), values, i32(result)}); }

void PrintTo(const Example& example, std::ostream* out) { *out << example.code << ' ' << example.told; }

const std::vector<Example>& allExamples() {
    static const std::vector<Example>& all = *new std::vector<Example>([] {
        std::vector<Example> examples;
        for (const auto subject :
             {identityExamples, lifecycleExamples, mediaExamples, streamExamples, sessionExamples,
              connectionExamples, discoveryExamples, callExamples, carPlayExamples}) {
            for (Example& example : subject())
                examples.push_back(std::move(example));
        }
        return examples;
    }());
    return all;
}

}  // namespace accessory::test
