#include "AppleiAP2/manager/AnswerKinds.h"

#include <android/log.h>

#include <algorithm>
#include <string>

namespace accessory::wire::iap2_manager {

namespace {

constexpr const char* kTag = kiAP2ManagerUnit.tag;

// Where a thread's answers live on; the replies do not.
thread_local std::string tFeature;
thread_local std::string tVersion;

const char* keep(std::string* kept, const char* text) {
    if (text == nullptr) return nullptr;
    *kept = text;
    return kept->c_str();
}

}  // namespace

void AppIds::Slot::writeReply(Writer& out) {
    const unsigned int sent = std::min(count, kMostIds);
    out.i32(static_cast<int32_t>(sent));
    for (unsigned int i = 0; i < sent; ++i)
        out.cstr(ids[i]);
}

void AppIds::readReply(Reader& in, const char** appIds, unsigned int* count) {
    const auto announced = static_cast<unsigned int>(in.i32());
    *count = std::min(announced, kMostIds);
    for (unsigned int i = 0; i < *count; ++i) {
        if (in.cstr() == nullptr) continue;
        __android_log_print(ANDROID_LOG_DEBUG, kTag, "%s get appIds %s", "getAPPIds",
                            appIds != nullptr && appIds[i] != nullptr ? appIds[i] : "(null)");
    }
    passOverSurplus(announced, [&in] { return in.cstr() != nullptr; });
}

GiveUp FeatureAnswer::write(Writer& out, const char* feature, const char* /*check*/) {
    if (!holds(out.site(), feature != nullptr, "feature")) return android::BAD_VALUE;
    out.cstr(feature);
    return kGoOn;
}

const char* FeatureAnswer::read(Reader& in) { return keep(&tFeature, in.cstr()); }

GiveUp VersionAnswer::write(Writer& out, const char* version, const char* /*check*/) {
    if (version != nullptr) {
        out.cstr(version);
    } else {
        __android_log_print(ANDROID_LOG_WARN, kTag, "getVersion return NULL\n");
    }
    return kGoOn;
}

const char* VersionAnswer::read(Reader& in) { return keep(&tVersion, in.cstr()); }

}  // namespace accessory::wire::iap2_manager
