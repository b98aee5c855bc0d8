// The members of the structures that travel, by their own names.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <tuple>

#include "tools/rows/Members.h"

namespace accessory::tools {

/// The members of @p Structure, in their order; one specialisation each.
template <typename Structure>
inline constexpr auto kMembersOf = nullptr;

template <>
inline constexpr auto kMembersOf<HIDReportAttributes> = std::tuple(
    member("componentId", &HIDReportAttributes::componentId),
    member("vendorId", &HIDReportAttributes::vendorId), member("productId", &HIDReportAttributes::productId),
    member("reportDescriptor", &HIDReportAttributes::reportDescriptor,
           &HIDReportAttributes::reportDescriptorLen),
    member("countryCode", &HIDReportAttributes::countryCode));

template <>
inline constexpr auto kMembersOf<InitiateCallParam> =
    std::tuple(member("type", &InitiateCallParam::type),
               optionalMember("destinationId", &InitiateCallParam::destinationId),
               member("service", &InitiateCallParam::service),
               optionalMember("addressBookId", &InitiateCallParam::addressBookId));

template <>
inline constexpr auto kMembersOf<CPStartSessionWiredAttributes> =
    std::tuple(member("string1", &CPStartSessionWiredAttributes::string1));

template <>
inline constexpr auto kMembersOf<CPStartSessionWirelessAttributes> =
    std::tuple(member("string1", &CPStartSessionWirelessAttributes::string1),
               member("string2", &CPStartSessionWirelessAttributes::string2),
               member("value8", &CPStartSessionWirelessAttributes::value8),
               member("string3", &CPStartSessionWirelessAttributes::string3),
               member("value32", &CPStartSessionWirelessAttributes::value32));

template <>
inline constexpr auto kMembersOf<FileTransferSetup> =
    std::tuple(member("value1", &FileTransferSetup::value1), member("value2", &FileTransferSetup::value2),
               member("value3", &FileTransferSetup::value3), member("value4", &FileTransferSetup::value4),
               member("value5", &FileTransferSetup::value5),
               member("buffer", &FileTransferSetup::buffer, &FileTransferSetup::bufferLength),
               member("value8", &FileTransferSetup::value8));

template <>
inline constexpr auto kMembersOf<AppleAppList> =
    std::tuple(member("value16", &AppleAppList::value16), member("string1", &AppleAppList::string1),
               member("string2", &AppleAppList::string2), member("value32", &AppleAppList::value32),
               member("buffer", &AppleAppList::buffer, &AppleAppList::bufferLength));

template <>
inline constexpr auto kMembersOf<StartCallStateUpdateParam> =
    std::tuple(member("field1", &StartCallStateUpdateParam::field1),
               member("field2", &StartCallStateUpdateParam::field2),
               member("field3", &StartCallStateUpdateParam::field3),
               member("field4", &StartCallStateUpdateParam::field4),
               member("field5", &StartCallStateUpdateParam::field5),
               member("field6", &StartCallStateUpdateParam::field6),
               member("field7", &StartCallStateUpdateParam::field7),
               member("field8", &StartCallStateUpdateParam::field8),
               member("field9", &StartCallStateUpdateParam::field9),
               member("field10", &StartCallStateUpdateParam::field10),
               member("field11", &StartCallStateUpdateParam::field11),
               member("field12", &StartCallStateUpdateParam::field12));

template <>
inline constexpr auto kMembersOf<StartCommunicationsUpdatesParam> =
    std::tuple(member("field1", &StartCommunicationsUpdatesParam::field1),
               member("field2", &StartCommunicationsUpdatesParam::field2),
               member("field3", &StartCommunicationsUpdatesParam::field3),
               member("field4", &StartCommunicationsUpdatesParam::field4),
               member("field5", &StartCommunicationsUpdatesParam::field5),
               member("field6", &StartCommunicationsUpdatesParam::field6),
               member("field7", &StartCommunicationsUpdatesParam::field7),
               member("field8", &StartCommunicationsUpdatesParam::field8),
               member("field9", &StartCommunicationsUpdatesParam::field9),
               member("field10", &StartCommunicationsUpdatesParam::field10),
               member("field11", &StartCommunicationsUpdatesParam::field11),
               member("field12", &StartCommunicationsUpdatesParam::field12),
               member("field13", &StartCommunicationsUpdatesParam::field13),
               member("field14", &StartCommunicationsUpdatesParam::field14),
               member("field15", &StartCommunicationsUpdatesParam::field15),
               member("field16", &StartCommunicationsUpdatesParam::field16),
               member("field17", &StartCommunicationsUpdatesParam::field17));

template <>
inline constexpr auto kMembersOf<CallStateUpdateParam> =
    std::tuple(optionalMember("field1", &CallStateUpdateParam::field1),
               optionalMember("field2", &CallStateUpdateParam::field2),
               optionalMember("field3", &CallStateUpdateParam::field3),
               optionalMember("field4", &CallStateUpdateParam::field4),
               optionalMember("field5", &CallStateUpdateParam::field5),
               optionalMember("field6", &CallStateUpdateParam::field6),
               optionalMember("field7", &CallStateUpdateParam::field7),
               optionalMember("field8", &CallStateUpdateParam::field8),
               optionalMember("field9", &CallStateUpdateParam::field9),
               optionalMember("field10", &CallStateUpdateParam::field10),
               optionalMember("field11", &CallStateUpdateParam::field11),
               optionalMember("field12", &CallStateUpdateParam::field12));

template <>
inline constexpr auto kMembersOf<CommunicationsUpdateParam> =
    std::tuple(optionalMember("field1", &CommunicationsUpdateParam::field1),
               optionalMember("field2", &CommunicationsUpdateParam::field2),
               optionalMember("field3", &CommunicationsUpdateParam::field3),
               optionalMember("field4", &CommunicationsUpdateParam::field4),
               optionalMember("field5", &CommunicationsUpdateParam::field5),
               optionalMember("field6", &CommunicationsUpdateParam::field6),
               optionalMember("field7", &CommunicationsUpdateParam::field7),
               optionalMember("field8", &CommunicationsUpdateParam::field8),
               optionalMember("field9", &CommunicationsUpdateParam::field9),
               optionalMember("field10", &CommunicationsUpdateParam::field10),
               optionalMember("field11", &CommunicationsUpdateParam::field11),
               optionalMember("field12", &CommunicationsUpdateParam::field12),
               optionalMember("field13", &CommunicationsUpdateParam::field13),
               optionalMember("field14", &CommunicationsUpdateParam::field14),
               optionalMember("field15", &CommunicationsUpdateParam::field15),
               optionalMember("field16", &CommunicationsUpdateParam::field16),
               optionalMember("field17", &CommunicationsUpdateParam::field17));

}  // namespace accessory::tools
