#include "plist/Value.hpp"

#include <algorithm>

namespace vornix::plist {
namespace {

bool keyLess(const Dictionary::Entry& entry, std::string_view key) { return entry.first < key; }

}  // namespace

Dictionary Dictionary::fromEntries(std::vector<Entry> entries) {
    // Writers emit sorted keys, so most documents arrive in order and need no sort.
    const auto outOfOrder = std::adjacent_find(entries.begin(), entries.end(),
                                               [](const Entry& a, const Entry& b) { return !(a.first < b.first); });
    if (outOfOrder == entries.end()) {
        Dictionary dictionary;
        dictionary.entries_ = std::move(entries);
        return dictionary;
    }
    // A stable sort keeps document order among equal keys, so the last of each run is the last written.
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.first < b.first; });
    Dictionary dictionary;
    dictionary.entries_.reserve(entries.size());
    for (auto& entry : entries) {
        if (!dictionary.entries_.empty() && dictionary.entries_.back().first == entry.first) {
            dictionary.entries_.back().second = std::move(entry.second);
        } else {
            dictionary.entries_.push_back(std::move(entry));
        }
    }
    return dictionary;
}

void Dictionary::set(std::string key, Value value) {
    auto place = std::lower_bound(entries_.begin(), entries_.end(), std::string_view(key), keyLess);
    if (place != entries_.end() && place->first == key) {
        place->second = std::move(value);
    } else {
        entries_.emplace(place, std::move(key), std::move(value));
    }
}

const Value* Dictionary::find(std::string_view key) const {
    auto place = std::lower_bound(entries_.begin(), entries_.end(), key, keyLess);
    return place != entries_.end() && place->first == key ? &place->second : nullptr;
}

bool operator==(const Dictionary& a, const Dictionary& b) { return a.entries_ == b.entries_; }

std::string_view kindName(Value::Kind kind) {
    switch (kind) {
        case Value::Kind::string: return "string";
        case Value::Kind::integer: return "integer";
        case Value::Kind::real: return "real";
        case Value::Kind::boolean: return "boolean";
        case Value::Kind::date: return "date";
        case Value::Kind::data: return "data";
        case Value::Kind::array: return "array";
        case Value::Kind::dictionary: return "dict";
    }
    return "unknown";
}

}  // namespace vornix::plist
