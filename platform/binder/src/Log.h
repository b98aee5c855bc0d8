// The runtime's own log lines, all under the tag "Binder".
#pragma once

#include <android/log.h>

#define BINDER_LOGE(...) __android_log_print(ANDROID_LOG_ERROR, "Binder", __VA_ARGS__)
#define BINDER_LOGW(...) __android_log_print(ANDROID_LOG_WARN, "Binder", __VA_ARGS__)
