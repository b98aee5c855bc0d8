// Arrays of numbers, bytes and eight-byte blocks between C++ and JSON.
#pragma once

#include <type_traits>
#include <vector>

#include "tools/rows/Members.h"

namespace accessory::tools {

/// An array of @p Element: a byte array as bytes, a structure of nothing but bytes as bytes each, anything
/// else as numbers.
template <typename Element>
struct ListOf {
    static constexpr bool kIsBytes = std::is_same_v<Element, unsigned char> || std::is_same_v<Element, char>;
    static constexpr bool kIsBlocks = std::is_class_v<Element>;

    static std::string expects() {
        if constexpr (kIsBlocks) {
            return "a list of " + std::to_string(sizeof(Element)) + " bytes each as hex digits";
        } else {
            return "a list of numbers, 1,2,3";
        }
    }

    static FieldDescription describe(const char* name, unsigned position) {
        if constexpr (kIsBytes) return describeBytes(name, 0, 5);
        FieldDescription made;
        made.name = name;
        made.shape = Shape::kList;
        made.expects = expects();
        made.example = Json::Value(Json::arrayValue);
        for (unsigned i = 0; i < 2; ++i)
            made.example.append(kIsBlocks ? bytesExample(sizeof(Element))["hex"]
                                          : numberExample(position + i));
        return made;
    }

    static Json::Value toJson(const Element* elements, size_t count) {
        if (elements == nullptr && count != 0) return {};
        if constexpr (kIsBytes) return bytesToJson(elements, count);
        Json::Value shown(Json::arrayValue);
        for (size_t i = 0; i < count; ++i)
            shown.append(elementToJson(elements[i]));
        return shown;
    }

    static std::vector<Element> fromJson(const Json::Value& value, const std::string& where) {
        std::vector<Element> elements;
        if constexpr (kIsBytes) {
            const Bytes raw = bytes(value, where);
            elements.assign(raw.begin(), raw.end());
        } else {
            for (const Json::Value& each : list(value, where, expects()))
                elements.push_back(elementFromJson(each, where));
        }
        return elements;
    }

  private:
    static Json::Value elementToJson(const Element& element) {
        if constexpr (kIsBlocks) {
            return bytesToJson(element.bytes, sizeof(element.bytes))["hex"];
        } else {
            return Scalar<Element>::toJson(element);
        }
    }

    static Element elementFromJson(const Json::Value& value, const std::string& where) {
        if constexpr (kIsBlocks) {
            const Bytes raw = bytes(value, where, sizeof(Element));
            Element element = {};
            std::copy(raw.begin(), raw.end(), element.bytes);
            return element;
        } else {
            return Scalar<Element>::fromJson(value, where);
        }
    }
};

}  // namespace accessory::tools
