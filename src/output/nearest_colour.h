#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace kirameki {

// Finds the palette entry nearest to a colour (squared distance in RGB, the lowest index on a
// tie) among a few candidates instead of the whole palette. The colour cube is cut into cells;
// the first time a cell is asked about, it keeps every entry that can be the nearest to some
// colour in it: those no farther from the cell than the farthest point of the cell is from
// the entry that is best in the worst case. Cells of side 32, 16 and 8 nest, and each takes its
// candidates from the list of the cell around it, so that building a small cell looks at a
// dozen entries rather than the whole palette. Built for one palette of 1 to 256 packed rgb
// entries; reused for every pixel of a picture.
class NearestColour {
  public:
    explicit NearestColour(const std::vector<std::uint32_t>& palette);

    int Nearest(int r, int g, int b);

    // The index of an entry of exactly this colour, or -1.
    int Exact(std::uint32_t rgb) const;

  private:
    struct Candidate {
        std::int16_t r, g, b, index;
    };
    struct Span {
        std::int32_t start = -1;  // into candidates_; -1 until the cell is built
        std::int32_t count = 0;
    };
    static constexpr int kLevels = 3;
    static constexpr std::array<int, kLevels> kCellBits = {5, 4, 3};

    int Search(int r, int g, int b);
    Span Cell(int level, int r, int g, int b);
    Span Build(int level, int r, int g, int b, Span from);
    // Repeats the last candidate until the list from start fills whole steps of four.
    void PadToSteps(std::int32_t start);

    Span palette_;  // the whole palette, the first entries of candidates_
    std::array<std::vector<Span>, kLevels> cells_;
    std::vector<Candidate> candidates_;
    // The answers to recent questions, by colour (+ 1, so that 0 is free).
    static constexpr int kRecentBits = 12;
    std::array<std::uint32_t, 1 << kRecentBits> recentKey_{};
    std::array<std::uint8_t, 1 << kRecentBits> recentIndex_{};
    // Exact colours: open addressing, at least twice as many slots as entries.
    static constexpr int kExactSlots = 512;
    std::array<std::uint32_t, kExactSlots> exactKey_{};  // rgb | 1 << 24 when used
    std::array<std::uint8_t, kExactSlots> exactIndex_{};
};

}  // namespace kirameki
