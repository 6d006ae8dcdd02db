#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "plist/KeyedCoding.hpp"

namespace vornix::launch_agent {

// One permission triple of a POSIX file mode (read 4, write 2, execute 1) as an option set
// over a signed 64-bit raw value. Any raw value is accepted: nothing limits it to 0...7.
class PermissionBits {
public:
    static const PermissionBits read;
    static const PermissionBits write;
    static const PermissionBits execute;

    // The empty set.
    constexpr PermissionBits() = default;
    constexpr explicit PermissionBits(std::int64_t rawValue) : rawValue_(rawValue) {}
    // The union of the given members: PermissionBits{PermissionBits::read, PermissionBits::execute}.
    PermissionBits(std::initializer_list<PermissionBits> members);
    // The bits a umask digit leaves allowed: raw value 7 - umaskValue.
    static PermissionBits fromUmaskValue(std::int64_t umaskValue);

    constexpr std::int64_t rawValue() const { return rawValue_; }
    // The umask digit that leaves exactly these bits: 7 - rawValue.
    std::int64_t umaskValue() const;
    // "r" or "-", "w" or "-", "x" or "-": three characters; bits above execute/write/read are ignored.
    std::string description() const;

    PermissionBits unionWith(PermissionBits other) const;
    PermissionBits intersection(PermissionBits other) const;
    PermissionBits symmetricDifference(PermissionBits other) const;
    PermissionBits subtracting(PermissionBits other) const;
    void formUnion(PermissionBits other);
    void formIntersection(PermissionBits other);
    void formSymmetricDifference(PermissionBits other);
    void subtract(PermissionBits other);

    // Adds `member`; answers whether it was new, and the member as now held (the part that was
    // already there when it was not new).
    std::pair<bool, PermissionBits> insert(PermissionBits member);
    // Takes `member` out; answers the part of it that was held, or nothing when none was.
    std::optional<PermissionBits> remove(PermissionBits member);
    // Adds `member`; answers the part of it that was already held, or nothing when none was.
    std::optional<PermissionBits> update(PermissionBits member);

    bool contains(PermissionBits member) const;
    bool isEmpty() const;
    bool isSubset(PermissionBits other) const;
    bool isStrictSubset(PermissionBits other) const;
    bool isSuperset(PermissionBits other) const;
    bool isStrictSuperset(PermissionBits other) const;
    bool isDisjoint(PermissionBits other) const;

    friend constexpr bool operator==(PermissionBits, PermissionBits) = default;

private:
    std::int64_t rawValue_ = 0;
};

inline constexpr PermissionBits PermissionBits::read{4};
inline constexpr PermissionBits PermissionBits::write{2};
inline constexpr PermissionBits PermissionBits::execute{1};

}  // namespace vornix::launch_agent

// Permission bits are written and read as their bare raw value.
template <>
struct vornix::plist::Coding<vornix::launch_agent::PermissionBits> {
    static Value encode(vornix::launch_agent::PermissionBits bits, const CodingPath&) { return bits.rawValue(); }
    static vornix::launch_agent::PermissionBits decode(const Value& value, const CodingPath& path) {
        return vornix::launch_agent::PermissionBits(Coding<std::int64_t>::decode(value, path));
    }
};
