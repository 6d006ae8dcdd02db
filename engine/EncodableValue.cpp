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

// Sequences order by their first elements that differ; a sequence that begins another orders
// before it. Written out because the standard algorithm for it is missing from Apple's library.
template <class T, class Compare>
std::strong_ordering compareElementwise(const std::vector<T>& a, const std::vector<T>& b, Compare compare) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (const std::strong_ordering order = compare(a[i], b[i]); order != 0) {
            return order;
        }
    }
    return a.size() <=> b.size();
}

template <class T>
std::strong_ordering compareSequences(const std::vector<T>& a, const std::vector<T>& b) {
    return compareElementwise(a, b, [](const T& x, const T& y) { return compareNumbers(x, y); });
}

}  // namespace

// Both orders share this walk; they differ only in whether an integer's width is part of it.
struct ValueOrder {
    bool widthMatters;

    std::strong_ordering operator()(const EncodableValue& a, const EncodableValue& b) const {
        if (a.storage_.index() != b.storage_.index()) {
            const std::size_t rankA = rank(a);
            const std::size_t rankB = rank(b);
            return rankA != rankB ? rankA <=> rankB : widerInteger(a) <=> widerInteger(b);
        }
        return std::visit(
            [&](const auto& x) { return contents(x, *std::get_if<std::decay_t<decltype(x)>>(&b.storage_)); },
            a.storage_);
    }

    // Entries are compared in key order, so that insertion order does not matter.
    std::strong_ordering operator()(const EncodableMap& a, const EncodableMap& b) const {
        if (a.size() != b.size()) {
            return a.size() <=> b.size();
        }
        for (std::size_t i = 0; i < a.byKey_.size(); ++i) {
            const EncodableMap::Entry& x = a.entries_[a.byKey_[i]];
            const EncodableMap::Entry& y = b.entries_[b.byKey_[i]];
            if (const auto order = (*this)(x.first, y.first); order != 0) {
                return order;
            }
            if (const auto order = (*this)(x.second, y.second); order != 0) {
                return order;
            }
        }
        return std::strong_ordering::equal;
    }

private:
    // Kinds order by their place in the storage, except that without widths an int64 ranks as
    // an int32 and the two then compare by their numbers.
    std::size_t rank(const EncodableValue& value) const {
        const EncodableValue::Kind kind = value.kind();
        return static_cast<std::size_t>(!widthMatters && kind == EncodableValue::Kind::int64 ? EncodableValue::Kind::int32 : kind);
    }
    static std::int64_t widerInteger(const EncodableValue& value) {
        const auto* narrow = value.get<std::int32_t>();
        return narrow != nullptr ? std::int64_t{*narrow} : *value.get<std::int64_t>();
    }

    std::strong_ordering contents(const std::monostate&, const std::monostate&) const {
        return std::strong_ordering::equal;
    }
    std::strong_ordering contents(const std::string& a, const std::string& b) const { return a.compare(b) <=> 0; }
    std::strong_ordering contents(const EncodableList& a, const EncodableList& b) const {
        return compareElementwise(a, b, *this);
    }
    std::strong_ordering contents(const EncodableMap& a, const EncodableMap& b) const { return (*this)(a, b); }
    template <class T>
    std::strong_ordering contents(const std::vector<T>& a, const std::vector<T>& b) const {
        return compareSequences(a, b);
    }
    template <class T>
    std::strong_ordering contents(const T& a, const T& b) const {
        return compareNumbers(a, b);
    }
};

std::strong_ordering compareKeys(const EncodableValue& a, const EncodableValue& b) {
    return ValueOrder{.widthMatters = false}(a, b);
}


EncodableMap::EncodableMap(std::initializer_list<Entry> entries)
    : EncodableMap(fromEntries(std::vector<Entry>(entries))) {}

EncodableMap EncodableMap::fromEntries(std::vector<Entry> entries) {
    std::vector<std::uint32_t> order(entries.size());
    std::iota(order.begin(), order.end(), 0u);
    // Stable, so that within a run of equal keys the first is the first written and the last the last.
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return compareKeys(entries[a].first, entries[b].first) < 0; });
    std::vector<bool> dropped(entries.size(), false);
    for (std::size_t run = 0; run < order.size();) {
        std::size_t next = run + 1;
        while (next < order.size() && compareKeys(entries[order[next]].first, entries[order[run]].first) == 0) {
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
        return compareKeys(entries_[position].first, wanted) < 0;
    });
    return static_cast<std::size_t>(place - byKey_.begin());
}

void EncodableMap::set(EncodableValue key, EncodableValue value) {
    const std::size_t place = lowerBound(key);
    if (place < byKey_.size() && compareKeys(entries_[byKey_[place]].first, key) == 0) {
        entries_[byKey_[place]].second = std::move(value);
        return;
    }
    byKey_.insert(byKey_.begin() + static_cast<std::ptrdiff_t>(place), static_cast<std::uint32_t>(entries_.size()));
    entries_.emplace_back(std::move(key), std::move(value));
}

const EncodableValue* EncodableMap::find(const EncodableValue& key) const {
    const std::size_t place = lowerBound(key);
    if (place < byKey_.size() && compareKeys(entries_[byKey_[place]].first, key) == 0) {
        return &entries_[byKey_[place]].second;
    }
    return nullptr;
}


bool operator==(const EncodableMap& a, const EncodableMap& b) { return (a <=> b) == 0; }

std::strong_ordering operator<=>(const EncodableMap& a, const EncodableMap& b) {
    return ValueOrder{.widthMatters = true}(a, b);
}

bool operator==(const EncodableValue& a, const EncodableValue& b) { return (a <=> b) == 0; }

std::strong_ordering operator<=>(const EncodableValue& a, const EncodableValue& b) {
    return ValueOrder{.widthMatters = true}(a, b);
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
