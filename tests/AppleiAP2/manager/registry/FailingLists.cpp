// The platform's functions are taken over as liblog's are: the dynamic linker finds the program's definition
// before the library's.
#include "tests/AppleiAP2/manager/registry/FailingLists.h"

#include <dlfcn.h>
#include <sys/types.h>
#include <utils/Errors.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

using accessory::test::FailingLists;

std::atomic<int> addsLeft{FailingLists::kNever};
std::atomic<int> removesLeft{FailingLists::kNever};
std::atomic<bool> formatFails{false};

ssize_t passOn(const char* name, void* list, const void* item) {
    using Function = ssize_t (*)(void*, const void*);
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name))(list, item);
}

/// Counts down only while a test has set a number.
bool isUsedUp(std::atomic<int>& left) { return left != FailingLists::kNever && left-- <= 0; }

int formatted(char* buffer, size_t size, const char* format, va_list values) {
    if (!formatFails || std::strstr(format, "pid[%d]") == nullptr)
        return std::vsnprintf(buffer, size, format, values);
    std::strcpy(buffer, "?");
    return -7;
}

}  // namespace

#define TAKES_OVER(name) __asm__(name) __attribute__((visibility("default"), used))
#define ADD "_ZN7android16SortedVectorImpl3addEPKv"
#define REMOVE "_ZN7android16SortedVectorImpl6removeEPKv"

ssize_t addToList(void* list, const void* item) TAKES_OVER(ADD);
ssize_t removeFromList(void* list, const void* item) TAKES_OVER(REMOVE);

ssize_t addToList(void* list, const void* item) {
    return isUsedUp(addsLeft) ? ssize_t{android::NO_MEMORY} : passOn(ADD, list, item);
}

ssize_t removeFromList(void* list, const void* item) {
    return isUsedUp(removesLeft) ? FailingLists::kRemoveError : passOn(REMOVE, list, item);
}

int formatNumbers(char* buffer, size_t size, const char* format, ...) TAKES_OVER("snprintf");
int formatNumbersChecked(char* buffer, size_t size, int flag, size_t room, const char* format, ...)
    TAKES_OVER("__snprintf_chk");

int formatNumbers(char* buffer, size_t size, const char* format, ...) {
    va_list values;
    va_start(values, format);
    const int result = formatted(buffer, size, format, values);
    va_end(values);
    return result;
}

int formatNumbersChecked(char* buffer, size_t size, int /*flag*/, size_t /*room*/, const char* format, ...) {
    va_list values;
    va_start(values, format);
    const int result = formatted(buffer, size, format, values);
    va_end(values);
    return result;
}

namespace accessory::test {

FailingLists::FailingLists(int goodAdds, int goodRemoves) {
    addsLeft = goodAdds;
    removesLeft = goodRemoves;
}

FailingLists::~FailingLists() {
    addsLeft = kNever;
    removesLeft = kNever;
}

FailingFormat::FailingFormat() { formatFails = true; }

FailingFormat::~FailingFormat() { formatFails = false; }

}  // namespace accessory::test
