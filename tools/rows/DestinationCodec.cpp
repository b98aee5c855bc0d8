// The destination: members that go with the bits of a mask.
#include <cstring>

#include "tools/rows/Lists.h"
#include "tools/rows/RecordCodecs.h"

namespace accessory::tools {

namespace {

using Info = DestinationInfo;

struct EightBytesMember {
    const char* name = "eightBytes";

    FieldDescription describe(unsigned /*position*/) const {
        return describeBytes(name, sizeof(Info::eightBytes), sizeof(Info::eightBytes));
    }
    static Json::Value get(const Info& from) { return bytesToJson(from.eightBytes, sizeof(from.eightBytes)); }
    static void set(Info* to, const Json::Value& value, const std::string& where, Keeper* /*keeper*/) {
        const Bytes raw = bytes(value, where, sizeof(to->eightBytes));
        memcpy(to->eightBytes, raw.data(), raw.size());
    }
};

struct PointsMember {
    using Points = ListOf<Info::Point>;
    const char* name = "points";

    FieldDescription describe(unsigned position) const { return Points::describe(name, position); }
    static Json::Value get(const Info& from) { return Points::toJson(from.points, from.pointCount); }
    static void set(Info* to, const Json::Value& value, const std::string& where, Keeper* keeper) {
        auto* const points = keeper->keep(Points::fromJson(value, where));
        to->points = points->data();
        to->pointCount = static_cast<uint32_t>(points->size());
    }
};

template <typename Member>
struct BitMember {
    uint32_t bit;
    Member member;
};
template <typename Member>
BitMember(uint32_t, Member) -> BitMember<Member>;

constexpr auto kMembers = std::tuple(
    BitMember{Info::kFirstString, member("firstString", &Info::firstString)},
    BitMember{Info::kSecondString, member("secondString", &Info::secondString)},
    BitMember{Info::kEightBytes, EightBytesMember()},
    BitMember{Info::kThirdString, member("thirdString", &Info::thirdString)},
    BitMember{Info::kPoints, PointsMember()}, BitMember{Info::kValue, member("value", &Info::value)},
    BitMember{Info::kFourthString, member("fourthString", &Info::fourthString)},
    BitMember{Info::kFifthString, member("fifthString", &Info::fifthString)});

template <typename Use>
void forMembers(const Use& use) {
    std::apply([&use](const auto&... each) { (use(each.bit, each.member), ...); }, kMembers);
}

/// Bits of the mask that stand for no member.
constexpr ScalarMember<Info, uint32_t> kOtherBits = member("otherBits", &Info::mask);
constexpr uint32_t kMemberBits = 0xff;

}  // namespace

using Codec = FieldCodec<wire::iap2_notifier::Destination>;

FieldDescription Codec::describe(const Field& field, unsigned /*position*/) {
    FieldDescription made;
    made.name = field.name;
    made.shape = Shape::kStructure;
    forMembers([&made](uint32_t /*bit*/, const auto& each) {
        made.members.push_back(each.describe(static_cast<unsigned>(made.members.size())));
        made.example[each.name] = made.members.back().example;
    });
    made.expects = membersExpected(made.members);
    made.members.push_back(describeScalar<uint32_t>(kOtherBits.name, 0));
    return made;
}

void Codec::write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
    std::vector<std::string> names = {kOtherBits.name};
    forMembers([&names](uint32_t /*bit*/, const auto& each) { names.emplace_back(each.name); });
    const Json::Value given = object(value, field.name, describe(field, 0).expects, names);
    Info info;
    kOtherBits.set(&info, given[kOtherBits.name], field.name + std::string(".") + kOtherBits.name, keeper);
    forMembers([&](uint32_t bit, const auto& each) {
        if (!given.isMember(each.name)) return;
        each.set(&info, given[each.name], field.name + std::string(".") + each.name, keeper);
        info.mask |= bit;
    });
    Field::write(out, &info);
}

Json::Value Codec::show(const DestinationInfo* info) {
    Json::Value shown(Json::objectValue);
    forMembers([&](uint32_t bit, const auto& each) {
        if ((info->mask & bit) != 0) shown[each.name] = each.get(*info);
    });
    if ((info->mask & ~kMemberBits) != 0) shown[kOtherBits.name] = info->mask & ~kMemberBits;
    return shown;
}

}  // namespace accessory::tools
