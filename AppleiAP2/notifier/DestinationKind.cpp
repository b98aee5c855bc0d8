#include "AppleiAP2/notifier/DestinationKind.h"

#include <android/log.h>

namespace accessory::wire::iap2_notifier {

using Info = DestinationInfo;

void Destination::write(Writer& out, const DestinationInfo* info) {
    const auto has = [info](uint32_t bit) { return (info->mask & bit) != 0; };
    out.i32(static_cast<int32_t>(info->mask));
    if (has(Info::kFirstString)) out.cstr(info->firstString);
    if (has(Info::kSecondString)) out.cstr(info->secondString);
    if (has(Info::kEightBytes)) out.raw(info->eightBytes, sizeof(info->eightBytes));
    if (has(Info::kThirdString)) out.cstr(info->thirdString);
    if (has(Info::kPoints)) {
        out.i32(static_cast<int32_t>(info->pointCount));
        out.array(info->points, info->pointCount);
    }
    if (has(Info::kValue)) out.i32(static_cast<int32_t>(info->value));
    if (has(Info::kFourthString)) out.cstr(info->fourthString);
    if (has(Info::kFifthString)) out.cstr(info->fifthString);
}

GiveUp Destination::Slot::read(Reader& in) {
    info.mask = static_cast<uint32_t>(in.i32());
    __android_log_print(ANDROID_LOG_DEBUG, kiAP2NotifierUnit.tag, "DestinationInfo %s mask 0x%x",
                        in.site().function, info.mask);
    if (has(Info::kFirstString)) info.firstString = in.cstr();
    if (has(Info::kSecondString)) info.secondString = in.cstr();
    if (has(Info::kEightBytes)) in.raw(info.eightBytes, sizeof(info.eightBytes));
    if (has(Info::kThirdString)) info.thirdString = in.cstr();
    if (has(Info::kPoints) && !readPoints(in)) return android::NO_ERROR;
    if (has(Info::kValue)) info.value = static_cast<uint32_t>(in.i32());
    if (has(Info::kFourthString)) info.fourthString = in.cstr();
    if (has(Info::kFifthString)) info.fifthString = in.cstr();
    return kGoOn;
}

bool Destination::Slot::readPoints(Reader& in) {
    info.pointCount = static_cast<uint32_t>(in.i32());
    if (!points.allocate(info.pointCount)) {
        const Site site = in.site();
        __android_log_print(ANDROID_LOG_ERROR, site.unit.tag, "%s:%d memory allocation fail.", site.function,
                            site.line);
        return false;
    }
    in.raw(points.get(), info.pointCount * sizeof(Info::Point));
    info.points = points.get();
    return true;
}

}  // namespace accessory::wire::iap2_notifier
