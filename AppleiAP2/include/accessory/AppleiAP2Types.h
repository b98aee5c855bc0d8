// What travels in the iAP2 requests and events besides plain values and the data records: argument structures
// and enumerations.
//
// The library carries these values and looks into none of them. Fields that are named by their position
// (value1, field7) mean what the service and its clients agree on.
#pragma once

#include <cstddef>
#include <cstdint>

namespace accessory {

/// @name Enumerations of the service
/// @{

/// Completed by the service with enumerators of its own; travels as 32 bits.
enum AppleiAP2TransportMode : int32_t;
enum AppLaunchMethod : int32_t;
enum MediaLibCollectionType : int32_t;
enum MediaLibType : int32_t;
enum requestWiFiStatues : int32_t;
enum WiFiSecurityType : int32_t;

/// @}

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
    uint8_t bytes[8];  ///< what the service and its clients agree on
};
static_assert(sizeof(BTComInfo_s) == 8 && alignof(BTComInfo_s) == 1);

/// Argument of StartCallStateUpdates(); travels as it lies in memory. One byte per field of
/// CallStateUpdateParam, in the same order: not 0 when the client wants that field.
struct StartCallStateUpdateParam {
    /// @name Fields
    /// @{

    /// Not 0: the client wants the field of this number.
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

    /// @}
};
static_assert(sizeof(StartCallStateUpdateParam) == 12 && offsetof(StartCallStateUpdateParam, field1) == 0 &&
              offsetof(StartCallStateUpdateParam, field12) == 11);

/// Argument of StartCommunicationsUpdates(); travels as it lies in memory. One byte per field of
/// CommunicationsUpdateParam, as StartCallStateUpdateParam; seventeen bytes without padding.
struct StartCommunicationsUpdatesParam {
    /// @name Fields
    /// @{

    /// Not 0: the client wants the field of this number.
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

    /// @}
};
static_assert(sizeof(StartCommunicationsUpdatesParam) == 17 &&
              offsetof(StartCommunicationsUpdatesParam, field1) == 0 &&
              offsetof(StartCommunicationsUpdatesParam, field17) == 16);

/// Argument of InitiateCall(). A receiver's strings live until the operation returns.
struct InitiateCallParam {
    int32_t type = 0;                     ///< the service defines the values
    const char* destinationId = nullptr;  ///< may be null
    int32_t service = 0;                  ///< the service defines the values
    const char* addressBookId = nullptr;  ///< may be null
};

/// How CarPlayStartSession() is to start over the wire. A receiver's string lives until the operation
/// returns.
struct CPStartSessionWiredAttributes {
    const char* string1 = nullptr;  ///< not null
};

/// How CarPlayStartSession() is to start without a wire; as CPStartSessionWiredAttributes.
struct CPStartSessionWirelessAttributes {
    const char* string1 = nullptr;  ///< not null
    const char* string2 = nullptr;  ///< not null
    uint8_t value8 = 0;             ///< sent before the third string
    const char* string3 = nullptr;  ///< not null
    uint32_t value32 = 0;           ///< sent last
};

/// Argument of fileTransferSetup(). A receiver's buffer lives until the operation returns.
struct FileTransferSetup {
    /// @name Values
    /// @{

    /// Means what the service and its clients agree on.
    uint32_t value1 = 0;
    uint32_t value2 = 0;
    uint32_t value3 = 0;
    uint32_t value4 = 0;
    uint32_t value5 = 0;

    /// @}

    void* buffer = nullptr;     ///< null when there are no bytes, or no memory for them
    uint32_t bufferLength = 0;  ///< in bytes
    uint32_t value8 = 0;        ///< as the values above
};

/// One element of an application list. A receiver's strings and buffer live until the operation returns.
struct AppleAppList {
    uint16_t value16 = 0;           ///< sent first
    const char* string1 = nullptr;  ///< not null
    const char* string2 = nullptr;  ///< not null
    uint32_t value32 = 0;           ///< sent after the strings
    void* buffer = nullptr;         ///< not null when there is a length
    uint32_t bufferLength = 0;      ///< in bytes
};

/// Argument of CallStateUpdate(): twelve fields, each a pointer that is null when the field is absent. A
/// receiver's pointers are valid until the operation returns; a sender's must be until the call returns.
struct CallStateUpdateParam {
    /// @name Fields
    /// @{

    /// Null when absent.
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
    /// Null when absent. Only values that fit in 32 bits arrive as they were sent.
    const int64_t* field12 = nullptr;

    /// @}
};

/// Argument of CommunicationsUpdate(): seventeen fields, absent and valid as those of CallStateUpdateParam.
struct CommunicationsUpdateParam {
    /// @name Fields
    /// @{

    /// Null when absent.
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

    /// @}
};

/// Whether CarPlay can be started over the wire. A receiver's string lives until the operation returns.
struct CPAvailabilityWiredAttributes {
    bool available = false;      ///< whether it can be started so
    const char* text = nullptr;  ///< meaningful only when available
};

/// Whether CarPlay can be started without a wire; as CPAvailabilityWiredAttributes.
struct CPAvailabilityWirelessAttributes {
    bool available = false;      ///< whether it can be started so
    const char* text = nullptr;  ///< meaningful only when available
};

/// Argument of DestinationInformation(): a field is present when its bit of the mask is set. A receiver's
/// strings and points live until the operation returns.
struct DestinationInfo {
    /// @name Bits of the mask
    /// @{

    /// The field of that name is present.
    static constexpr uint32_t kFirstString = 0x01;
    static constexpr uint32_t kSecondString = 0x02;
    static constexpr uint32_t kEightBytes = 0x04;
    static constexpr uint32_t kThirdString = 0x08;
    static constexpr uint32_t kPoints = 0x10;
    static constexpr uint32_t kValue = 0x20;
    static constexpr uint32_t kFourthString = 0x40;
    static constexpr uint32_t kFifthString = 0x80;

    /// @}

    /// One point: eight bytes that the library does not look into.
    struct Point {
        uint8_t bytes[8];  ///< as they lie in memory
    };

    uint32_t mask = 0;                   ///< which fields are present
    const char* firstString = nullptr;   ///< not null when present, as all strings here
    const char* secondString = nullptr;  ///< of kSecondString
    uint8_t eightBytes[8] = {};          ///< of kEightBytes
    const char* thirdString = nullptr;   ///< of kThirdString
    uint32_t pointCount = 0;             ///< of kPoints: how many points there are
    Point* points = nullptr;             ///< of kPoints: not null when there are any
    uint32_t value = 0;                  ///< of kValue
    const char* fourthString = nullptr;  ///< of kFourthString
    const char* fifthString = nullptr;   ///< of kFifthString
};

}  // namespace accessory
