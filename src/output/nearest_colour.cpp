#include "output/nearest_colour.h"

#include <emmintrin.h>

#include <algorithm>
#include <limits>

namespace kirameki {

namespace {

constexpr std::uint32_t kUsed = 1u << 24;

int ExactSlot(std::uint32_t rgb, int slots) {
    return int((rgb * 2654435761u) >> 23) & (slots - 1);
}

int CellIndex(int bits, int r, int g, int b) {
    const int sideBits = 8 - bits;
    return (r >> bits) << (2 * sideBits) | (g >> bits) << sideBits | (b >> bits);
}

// Candidates are held as four 16-bit numbers, (r, g, b, index), two to a vector; these work on
// four candidates in two vectors at a time and answer one 32-bit lane a candidate.

// The sum of the squares of the first three numbers (the index lane is left out).
__m128i SumsOfSquares(__m128i a, __m128i b) {
    const __m128i colourLanes = _mm_set_epi16(0, -1, -1, -1, 0, -1, -1, -1);
    a = _mm_and_si128(a, colourLanes);
    b = _mm_and_si128(b, colourLanes);
    const __m128 pairsA = _mm_castsi128_ps(_mm_madd_epi16(a, a));
    const __m128 pairsB = _mm_castsi128_ps(_mm_madd_epi16(b, b));
    return _mm_add_epi32(_mm_castps_si128(_mm_shuffle_ps(pairsA, pairsB, _MM_SHUFFLE(2, 0, 2, 0))),
                         _mm_castps_si128(_mm_shuffle_ps(pairsA, pairsB, _MM_SHUFFLE(3, 1, 3, 1))));
}

__m128i Indices(__m128i a, __m128i b) {
    return _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(_mm_srli_epi64(a, 48)),
                                           _mm_castsi128_ps(_mm_srli_epi64(b, 48)),
                                           _MM_SHUFFLE(2, 0, 2, 0)));
}

__m128i Min(__m128i a, __m128i b) {
    const __m128i smaller = _mm_cmplt_epi32(a, b);
    return _mm_or_si128(_mm_and_si128(smaller, a), _mm_andnot_si128(smaller, b));
}

int Smallest(__m128i v) {
    alignas(16) std::int32_t lanes[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(lanes), v);
    return std::min({lanes[0], lanes[1], lanes[2], lanes[3]});
}

}  // namespace

NearestColour::NearestColour(const std::vector<std::uint32_t>& palette) {
    const int count = int(std::min<std::size_t>(palette.size(), 256));
    candidates_.reserve(32768);
    for (int i = 0; i < count; ++i) {
        const std::uint32_t rgb = palette[i] & 0xffffff;
        candidates_.push_back({std::int16_t(rgb & 0xff), std::int16_t((rgb >> 8) & 0xff),
                               std::int16_t(rgb >> 16), std::int16_t(i)});
        int slot = ExactSlot(rgb, kExactSlots);
        while (exactKey_[slot] != 0 && exactKey_[slot] != (rgb | kUsed))
            slot = (slot + 1) & (kExactSlots - 1);
        if (exactKey_[slot] == 0) {
            exactKey_[slot] = rgb | kUsed;
            exactIndex_[slot] = std::uint8_t(i);
        }
    }
    palette_ = {0, count};
    PadToSteps(0);
    for (int level = 0; level < kLevels; ++level)
        cells_[level].resize(std::size_t(1) << (3 * (8 - kCellBits[level])));
}

int NearestColour::Exact(std::uint32_t rgb) const {
    rgb &= 0xffffff;
    for (int slot = ExactSlot(rgb, kExactSlots);; slot = (slot + 1) & (kExactSlots - 1)) {
        if (exactKey_[slot] == (rgb | kUsed))
            return exactIndex_[slot];
        if (exactKey_[slot] == 0)
            return -1;
    }
}

NearestColour::Span NearestColour::Cell(int level, int r, int g, int b) {
    Span& cell = cells_[level][CellIndex(kCellBits[level], r, g, b)];
    if (cell.start < 0)
        cell = Build(level, r, g, b, level == 0 ? palette_ : Cell(level - 1, r, g, b));
    return cell;
}

NearestColour::Span NearestColour::Build(int level, int r, int g, int b, Span from) {
    const int bits = kCellBits[level], side = (1 << bits) - 1;
    const short lr = short((r >> bits) << bits), lg = short((g >> bits) << bits),
                lb = short((b >> bits) << bits);
    const __m128i low = _mm_set_epi16(0, lb, lg, lr, 0, lb, lg, lr);
    const __m128i high = _mm_add_epi16(low, _mm_set1_epi16(short(side)));
    const auto* first = reinterpret_cast<const __m128i*>(candidates_.data() + from.start);
    const int steps = (from.count + 3) / 4;
    // The bound: of all candidates, the smallest distance to the farthest corner of the cell.
    __m128i bound = _mm_set1_epi32(std::numeric_limits<int>::max());
    for (int step = 0; step < steps; ++step) {
        const __m128i a = _mm_loadu_si128(first + 2 * step),
                      b2 = _mm_loadu_si128(first + 2 * step + 1);
        const __m128i farA = _mm_max_epi16(_mm_sub_epi16(a, low), _mm_sub_epi16(high, a));
        const __m128i farB = _mm_max_epi16(_mm_sub_epi16(b2, low), _mm_sub_epi16(high, b2));
        bound = Min(bound, SumsOfSquares(farA, farB));
    }
    const int limit = Smallest(bound);
    // Candidates are appended while the list is read: the list is read by index.
    const std::int32_t start = std::int32_t(candidates_.size());
    const __m128i zero = _mm_setzero_si128(), boundLanes = _mm_set1_epi32(limit);
    for (int step = 0; step < steps; ++step) {
        const std::size_t at = std::size_t(from.start) + std::size_t(4 * step);
        const auto* pair = reinterpret_cast<const __m128i*>(candidates_.data() + at);
        const __m128i a = _mm_loadu_si128(pair), b2 = _mm_loadu_si128(pair + 1);
        const __m128i outA =
            _mm_max_epi16(_mm_max_epi16(_mm_sub_epi16(low, a), _mm_sub_epi16(a, high)), zero);
        const __m128i outB =
            _mm_max_epi16(_mm_max_epi16(_mm_sub_epi16(low, b2), _mm_sub_epi16(b2, high)), zero);
        const int far = _mm_movemask_ps(
            _mm_castsi128_ps(_mm_cmpgt_epi32(SumsOfSquares(outA, outB), boundLanes)));
        for (int lane = 0; lane < 4 && 4 * step + lane < from.count; ++lane)
            if ((far >> lane & 1) == 0)
                candidates_.push_back(candidates_[at + std::size_t(lane)]);
    }
    const std::int32_t count = std::int32_t(candidates_.size()) - start;
    PadToSteps(start);
    return {start, count};
}

void NearestColour::PadToSteps(std::int32_t start) {
    while (candidates_.size() > std::size_t(start) &&
           (candidates_.size() - std::size_t(start)) % 4 != 0)
        candidates_.push_back(candidates_.back());
}

int NearestColour::Nearest(int r, int g, int b) {
    // Dithering a flat facet asks for the same few colours again and again.
    const std::uint32_t key = std::uint32_t(r) << 16 | std::uint32_t(g) << 8 | std::uint32_t(b);
    const std::size_t slot = (key * 2654435761u) >> (32 - kRecentBits);
    if (recentKey_[slot] == key + 1)
        return recentIndex_[slot];
    recentKey_[slot] = key + 1;
    return recentIndex_[slot] = std::uint8_t(Search(r, g, b));
}

int NearestColour::Search(int r, int g, int b) {
    const Span cell = Cell(kLevels - 1, r, g, b);
    // (distance << 8 | index): the smallest is the nearest entry and, of entries equally
    // near, the first.
    const __m128i query =
        _mm_set_epi16(0, short(b), short(g), short(r), 0, short(b), short(g), short(r));
    const auto* c = reinterpret_cast<const __m128i*>(candidates_.data() + cell.start);
    __m128i best = _mm_set1_epi32(std::numeric_limits<int>::max());
    for (int i = 0; i < cell.count; i += 4, c += 2) {
        const __m128i a = _mm_loadu_si128(c), b2 = _mm_loadu_si128(c + 1);
        const __m128i distance = SumsOfSquares(_mm_sub_epi16(a, query), _mm_sub_epi16(b2, query));
        best = Min(best, _mm_or_si128(_mm_slli_epi32(distance, 8), Indices(a, b2)));
    }
    return Smallest(best) & 0xff;
}

}  // namespace kirameki
