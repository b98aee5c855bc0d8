// What travels in the iAP2 requests and events besides plain values and the data records: argument structures
// and enumerations.
//
// The library carries these values and looks into none of them. Fields that are named by their position
// (value1, field7) mean what the service and its clients agree on.
#pragma once

#include <cstddef>
#include <cstdint>

namespace accessory {

/// Enumerations of the service; it completes them with enumerators of its own. They travel as 32 bits.
enum AppleiAP2TransportMode : int32_t;
enum AppLaunchMethod : int32_t;
enum MediaLibCollectionType : int32_t;
enum MediaLibType : int32_t;
enum requestWiFiStatues : int32_t;
enum WiFiSecurityType : int32_t;

/// Argument of startHID(). A receiver's descriptor lives until the operation returns.
struct HIDReportAttributes {
    uint16_t componentId = 0;                   ///< HID component identifier
    uint16_t vendorId = 0;                      ///< vendor identifier of the component
    uint16_t productId = 0;                     ///< product identifier of the component
    const uint8_t* reportDescriptor = nullptr;  ///< the HID report descriptor
    uint32_t reportDescriptorLen = 0;           ///< its length in bytes
    uint8_t countryCode = 0;                    ///< keyboard country code
};

/// One element of BTComponentInformation(); travels as it lies in memory.
struct BTComInfo_s {
    uint8_t bytes[8];
};
static_assert(sizeof(BTComInfo_s) == 8 && alignof(BTComInfo_s) == 1);

/// Argument of StartCallStateUpdates(); travels as it lies in memory. One byte per field of
/// CallStateUpdateParam, in the same order: not 0 when the client wants that field.
struct StartCallStateUpdateParam {
    uint8_t field1 = 0;
    uint8_t field2 = 0;
    uint8_t field3 = 0;
    uint8_t field4 = 0;
    uint8_t field5 = 0;
    uint8_t field6 = 0;
    uint8_t field7 = 0;
    uint8_t field8 = 0;
    uint8_t field9 = 0;
    uint8_t field10 = 0;
    uint8_t field11 = 0;
    uint8_t field12 = 0;
};
static_assert(sizeof(StartCallStateUpdateParam) == 12 && offsetof(StartCallStateUpdateParam, field1) == 0 &&
              offsetof(StartCallStateUpdateParam, field12) == 11);

/// Argument of StartCommunicationsUpdates(); travels as it lies in memory. One byte per field of
/// CommunicationsUpdateParam, as StartCallStateUpdateParam; seventeen bytes without padding.
struct StartCommunicationsUpdatesParam {
    uint8_t field1 = 0;
    uint8_t field2 = 0;
    uint8_t field3 = 0;
    uint8_t field4 = 0;
    uint8_t field5 = 0;
    uint8_t field6 = 0;
    uint8_t field7 = 0;
    uint8_t field8 = 0;
    uint8_t field9 = 0;
    uint8_t field10 = 0;
    uint8_t field11 = 0;
    uint8_t field12 = 0;
    uint8_t field13 = 0;
    uint8_t field14 = 0;
    uint8_t field15 = 0;
    uint8_t field16 = 0;
    uint8_t field17 = 0;
};
static_assert(sizeof(StartCommunicationsUpdatesParam) == 17 &&
              offsetof(StartCommunicationsUpdatesParam, field1) == 0 &&
              offsetof(StartCommunicationsUpdatesParam, field17) == 16);

/// Argument of InitiateCall(). A receiver's strings live until the operation returns.
struct InitiateCallParam {
    int32_t type = 0;
    const char* destinationId = nullptr;  ///< may be null
    int32_t service = 0;
    const char* addressBookId = nullptr;  ///< may be null
};

/// How CarPlayStartSession() is to start over the wire. A receiver's string lives until the operation
/// returns.
struct CPStartSessionWiredAttributes {
    const char* string1 = nullptr;
};

/// How CarPlayStartSession() is to start without a wire; as CPStartSessionWiredAttributes.
struct CPStartSessionWirelessAttributes {
    const char* string1 = nullptr;
    const char* string2 = nullptr;
    uint8_t value8 = 0;
    const char* string3 = nullptr;
    uint32_t value32 = 0;
};

/// Argument of fileTransferSetup(). A receiver's buffer lives until the operation returns.
struct FileTransferSetup {
    uint32_t value1 = 0;
    uint32_t value2 = 0;
    uint32_t value3 = 0;
    uint32_t value4 = 0;
    uint32_t value5 = 0;
    void* buffer = nullptr;     ///< null when there are no bytes
    uint32_t bufferLength = 0;  ///< in bytes
    uint32_t value8 = 0;
};

/// One element of an application list. A receiver's strings and buffer live until the operation returns.
struct AppleAppList {
    uint16_t value16 = 0;
    const char* string1 = nullptr;
    const char* string2 = nullptr;
    uint32_t value32 = 0;
    void* buffer = nullptr;
    uint32_t bufferLength = 0;  ///< in bytes
};

/// Argument of CallStateUpdate(): twelve fields, each a pointer that is null when the field is absent. A
/// receiver's pointers are valid until the operation returns; a sender's must be until the call returns.
struct CallStateUpdateParam {
    const char* field1 = nullptr;
    const char* field2 = nullptr;
    const int32_t* field3 = nullptr;
    const int32_t* field4 = nullptr;
    const char* field5 = nullptr;
    const char* field6 = nullptr;
    const char* field7 = nullptr;
    const int32_t* field8 = nullptr;
    const bool* field9 = nullptr;
    const char* field10 = nullptr;
    const int32_t* field11 = nullptr;
    /// Only values that fit in 32 bits arrive as they were sent.
    const int64_t* field12 = nullptr;
};

/// Argument of CommunicationsUpdate(): seventeen fields, absent and valid as those of CallStateUpdateParam.
struct CommunicationsUpdateParam {
    const int32_t* field1 = nullptr;
    const int32_t* field2 = nullptr;
    const bool* field3 = nullptr;
    const char* field4 = nullptr;
    const bool* field5 = nullptr;
    const bool* field6 = nullptr;
    const bool* field7 = nullptr;
    const bool* field8 = nullptr;
    const bool* field9 = nullptr;
    const uint8_t* field10 = nullptr;
    const int32_t* field11 = nullptr;
    const bool* field12 = nullptr;
    const bool* field13 = nullptr;
    const bool* field14 = nullptr;
    const bool* field15 = nullptr;
    const bool* field16 = nullptr;
    const bool* field17 = nullptr;
};

/// Whether CarPlay can be started over the wire. A receiver's string lives until the operation returns.
struct CPAvailabilityWiredAttributes {
    bool available = false;
    const char* text = nullptr;  ///< meaningful only when available
};

/// Whether CarPlay can be started without a wire; as CPAvailabilityWiredAttributes.
struct CPAvailabilityWirelessAttributes {
    bool available = false;
    const char* text = nullptr;
};

/// Argument of DestinationInformation(): a field is present when its bit of the mask is set. A receiver's
/// strings and points live until the operation returns.
struct DestinationInfo {
    static constexpr uint32_t kFirstString = 0x01;
    static constexpr uint32_t kSecondString = 0x02;
    static constexpr uint32_t kEightBytes = 0x04;
    static constexpr uint32_t kThirdString = 0x08;
    static constexpr uint32_t kPoints = 0x10;
    static constexpr uint32_t kValue = 0x20;
    static constexpr uint32_t kFourthString = 0x40;
    static constexpr uint32_t kFifthString = 0x80;

    /// One point: eight bytes that the library does not look into.
    struct Point {
        uint8_t bytes[8];
    };

    uint32_t mask = 0;
    const char* firstString = nullptr;
    const char* secondString = nullptr;
    uint8_t eightBytes[8] = {};
    const char* thirdString = nullptr;
    uint32_t pointCount = 0;
    Point* points = nullptr;
    uint32_t value = 0;
    const char* fourthString = nullptr;
    const char* fifthString = nullptr;
};

}  // namespace accessory
