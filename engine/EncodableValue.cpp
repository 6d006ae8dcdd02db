#include "engine/EncodableValue.hpp"

#include <algorithm>
#include <bit>
#include <numeric>

namespace vornix::engine {
namespace {

// Floating-point numbers order by their bits, so that the order is total (NaN equals itself,
// -0.0 and 0.0 differ) and a decoded value equals the one that was encoded.
std::strong_ordering compareNumbers(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) <=> std::bit_cast<std::uint64_t>(b);
}
std::strong_ordering compareNumbers(float a, float b) {
    return std::bit_cast<std::uint32_t>(a) <=> std::bit_cast<std::uint32_t>(b);
}
template <class T>
std::strong_ordering compareNumbers(T a, T b) {
    return a <=> b;
}

template <class T>
std::strong_ordering compareSequences(const std::vector<T>& a, const std::vector<T>& b) {
    return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(),
                                                  [](const T& x, const T& y) { return compareNumbers(x, y); });
}

std::strong_ordering compareContents(const std::monostate&, const std::monostate&) {
    return std::strong_ordering::equal;
}
std::strong_ordering compareContents(const std::string& a, const std::string& b) { return a.compare(b) <=> 0; }
std::strong_ordering compareContents(const EncodableList& a, const EncodableList& b) {
    return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end());
}
std::strong_ordering compareContents(const EncodableMap& a, const EncodableMap& b) { return a <=> b; }
template <class T>
std::strong_ordering compareContents(const std::vector<T>& a, const std::vector<T>& b) {
    return compareSequences(a, b);
}
template <class T>
std::strong_ordering compareContents(const T& a, const T& b) {
    return compareNumbers(a, b);
}

}  // namespace

EncodableMap::EncodableMap(std::initializer_list<Entry> entries)
    : EncodableMap(fromEntries(std::vector<Entry>(entries))) {}

EncodableMap EncodableMap::fromEntries(std::vector<Entry> entries) {
    std::vector<std::uint32_t> order(entries.size());
    std::iota(order.begin(), order.end(), 0u);
    // Stable, so that within a run of equal keys the first is the first written and the last the last.
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return entries[a].first < entries[b].first; });
    std::vector<bool> dropped(entries.size(), false);
    for (std::size_t run = 0; run < order.size();) {
        std::size_t next = run + 1;
        while (next < order.size() && entries[order[next]].first == entries[order[run]].first) {
            ++next;
        }
        if (next - run > 1) {
            entries[order[run]].second = std::move(entries[order[next - 1]].second);
            for (std::size_t repeat = run + 1; repeat < next; ++repeat) {
                dropped[order[repeat]] = true;
            }
        }
        run = next;
    }
    EncodableMap map;
    std::vector<std::uint32_t> newPosition(entries.size());
    map.entries_.reserve(entries.size());
    for (std::size_t position = 0; position < entries.size(); ++position) {
        if (!dropped[position]) {
            newPosition[position] = static_cast<std::uint32_t>(map.entries_.size());
            map.entries_.push_back(std::move(entries[position]));
        }
    }
    map.byKey_.reserve(map.entries_.size());
    for (std::uint32_t position : order) {
        if (!dropped[position]) {
            map.byKey_.push_back(newPosition[position]);
        }
    }
    return map;
}

std::size_t EncodableMap::lowerBound(const EncodableValue& key) const {
    const auto place = std::lower_bound(byKey_.begin(), byKey_.end(), key, [&](std::uint32_t position, const EncodableValue& wanted) {
        return entries_[position].first < wanted;
    });
    return static_cast<std::size_t>(place - byKey_.begin());
}

void EncodableMap::set(EncodableValue key, EncodableValue value) {
    const std::size_t place = lowerBound(key);
    if (place < byKey_.size() && entries_[byKey_[place]].first == key) {
        entries_[byKey_[place]].second = std::move(value);
        return;
    }
    byKey_.insert(byKey_.begin() + static_cast<std::ptrdiff_t>(place), static_cast<std::uint32_t>(entries_.size()));
    entries_.emplace_back(std::move(key), std::move(value));
}

const EncodableValue* EncodableMap::find(const EncodableValue& key) const {
    const std::size_t place = lowerBound(key);
    if (place < byKey_.size() && entries_[byKey_[place]].first == key) {
        return &entries_[byKey_[place]].second;
    }
    return nullptr;
}


bool operator==(const EncodableMap& a, const EncodableMap& b) { return (a <=> b) == 0; }

std::strong_ordering operator<=>(const EncodableMap& a, const EncodableMap& b) {
    // Entries are compared in key order, so that insertion order does not matter.
    if (a.size() != b.size()) {
        return a.size() <=> b.size();
    }
    for (std::size_t i = 0; i < a.byKey_.size(); ++i) {
        const EncodableMap::Entry& x = a.entries_[a.byKey_[i]];
        const EncodableMap::Entry& y = b.entries_[b.byKey_[i]];
        if (const auto order = x.first <=> y.first; order != 0) {
            return order;
        }
        if (const auto order = x.second <=> y.second; order != 0) {
            return order;
        }
    }
    return std::strong_ordering::equal;
}

bool operator==(const EncodableValue& a, const EncodableValue& b) { return (a <=> b) == 0; }

std::strong_ordering operator<=>(const EncodableValue& a, const EncodableValue& b) {
    if (a.storage_.index() != b.storage_.index()) {
        return a.storage_.index() <=> b.storage_.index();
    }
    return std::visit(
        [&](const auto& x) {
            using T = std::decay_t<decltype(x)>;
            return compareContents(x, *std::get_if<T>(&b.storage_));
        },
        a.storage_);
}

std::string_view kindName(EncodableValue::Kind kind) {
    switch (kind) {
        case EncodableValue::Kind::null: return "null";
        case EncodableValue::Kind::boolean: return "bool";
        case EncodableValue::Kind::int32: return "int32";
        case EncodableValue::Kind::int64: return "int64";
        case EncodableValue::Kind::float64: return "double";
        case EncodableValue::Kind::string: return "string";
        case EncodableValue::Kind::uint8List: return "uint8list";
        case EncodableValue::Kind::int32List: return "int32list";
        case EncodableValue::Kind::int64List: return "int64list";
        case EncodableValue::Kind::float32List: return "float32list";
        case EncodableValue::Kind::float64List: return "float64list";
        case EncodableValue::Kind::list: return "list";
        case EncodableValue::Kind::map: return "map";
    }
    return "unknown";
}

}  // namespace vornix::engine
