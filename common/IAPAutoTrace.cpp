#include <accessory/IAPAutoTrace.h>

#include <android/log.h>

IAPAutoTrace::IAPAutoTrace(const char* tag, const std::string& file, const std::string& function)
    : mTag(tag), mFile(file), mFunction(function) {
    __android_log_print(ANDROID_LOG_DEBUG, mTag, "[%s][%s] [--IN--]", mFile.c_str(), mFunction.c_str());
}

IAPAutoTrace::~IAPAutoTrace() {
    __android_log_print(ANDROID_LOG_DEBUG, mTag, "[%s][%s] [--OUT--]", mFile.c_str(), mFunction.c_str());
}
