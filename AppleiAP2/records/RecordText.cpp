#include "AppleiAP2/records/RecordText.h"

#include <cstdio>

namespace accessory {
namespace {

void appendEscaped(std::string& text, char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
        text += '\\';
        text += c;
    } else if (byte < 0x20 || byte == 0x7f) {
        char escape[5];
        std::snprintf(escape, sizeof(escape), "\\x%02x", byte);
        text += escape;
    } else {
        text += c;
    }
}

}  // namespace

void appendQuoted(std::string& text, const char* value) {
    if (value == nullptr) {
        text += "null";
        return;
    }
    text += '"';
    for (; *value != '\0'; ++value)
        appendEscaped(text, *value);
    text += '"';
}

}  // namespace accessory
