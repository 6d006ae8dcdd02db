#include "launch_agent/PermissionBits.hpp"

#include "launch_agent/CheckedArithmetic.hpp"

namespace vornix::launch_agent {

PermissionBits::PermissionBits(std::initializer_list<PermissionBits> members) {
    for (PermissionBits member : members) {
        formUnion(member);
    }
}

PermissionBits PermissionBits::fromUmaskValue(std::int64_t umaskValue) {
    return PermissionBits(checkedSubtract(7, umaskValue));
}

std::int64_t PermissionBits::umaskValue() const { return checkedSubtract(7, rawValue_); }

std::string PermissionBits::description() const {
    std::string text;
    text += contains(read) ? 'r' : '-';
    text += contains(write) ? 'w' : '-';
    text += contains(execute) ? 'x' : '-';
    return text;
}

PermissionBits PermissionBits::unionWith(PermissionBits other) const {
    return PermissionBits(rawValue_ | other.rawValue_);
}

PermissionBits PermissionBits::intersection(PermissionBits other) const {
    return PermissionBits(rawValue_ & other.rawValue_);
}

PermissionBits PermissionBits::symmetricDifference(PermissionBits other) const {
    return PermissionBits(rawValue_ ^ other.rawValue_);
}

PermissionBits PermissionBits::subtracting(PermissionBits other) const {
    return PermissionBits(rawValue_ & ~other.rawValue_);
}

void PermissionBits::formUnion(PermissionBits other) { *this = unionWith(other); }
void PermissionBits::formIntersection(PermissionBits other) { *this = intersection(other); }
void PermissionBits::formSymmetricDifference(PermissionBits other) { *this = symmetricDifference(other); }
void PermissionBits::subtract(PermissionBits other) { *this = subtracting(other); }

std::pair<bool, PermissionBits> PermissionBits::insert(PermissionBits member) {
    if (contains(member)) {
        return {false, intersection(member)};
    }
    formUnion(member);
    return {true, member};
}

std::optional<PermissionBits> PermissionBits::remove(PermissionBits member) {
    const PermissionBits held = intersection(member);
    if (held.isEmpty()) {
        return std::nullopt;
    }
    subtract(member);
    return held;
}

std::optional<PermissionBits> PermissionBits::update(PermissionBits member) {
    const PermissionBits held = intersection(member);
    formUnion(member);
    if (held.isEmpty()) {
        return std::nullopt;
    }
    return held;
}

bool PermissionBits::contains(PermissionBits member) const { return intersection(member) == member; }
bool PermissionBits::isEmpty() const { return rawValue_ == 0; }
bool PermissionBits::isSubset(PermissionBits other) const { return intersection(other) == *this; }
bool PermissionBits::isStrictSubset(PermissionBits other) const { return *this != other && isSubset(other); }
bool PermissionBits::isSuperset(PermissionBits other) const { return other.isSubset(*this); }
bool PermissionBits::isStrictSuperset(PermissionBits other) const { return *this != other && isSuperset(other); }
bool PermissionBits::isDisjoint(PermissionBits other) const { return intersection(other).isEmpty(); }

}  // namespace vornix::launch_agent
