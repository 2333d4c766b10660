#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <optional>

#include "model/design.h"

namespace kirameki {

namespace {

constexpr int kMaxTeeth = 720;

bool IsValidUtf8(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const auto c = static_cast<unsigned char>(text[i]);
        std::size_t extra = 0;
        if (c >= 0x80)
            extra = (c >> 5) == 6 ? 1 : (c >> 4) == 14 ? 2 : (c >> 3) == 30 ? 3 : 9;
        if (extra == 9 || i + extra >= text.size() + (extra == 0 ? 1 : 0))
            return false;
        for (std::size_t k = 1; k <= extra; ++k)
            if ((static_cast<unsigned char>(text[i + k]) >> 6) != 2)
                return false;
        i += extra + 1;
    }
    return true;
}

// A number as a person writes it: no trailing zeros.
std::string Shown(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

// Windows-1252 to UTF-8: Latin-1 but for the printable characters at 0x80..0x9F.
std::string FromWindows1252(std::string_view text) {
    static const char16_t kHigh[32] = {
        0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};
    std::string out;
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        const char32_t code = c >= 0x80 && c < 0xA0 ? kHigh[c - 0x80] : c;
        if (code < 0x80) {
            out += char(code);
        } else if (code < 0x800) {
            out += char(0xC0 | (code >> 6));
            out += char(0x80 | (code & 0x3F));
        } else {
            out += char(0xE0 | (code >> 12));
            out += char(0x80 | ((code >> 6) & 0x3F));
            out += char(0x80 | (code & 0x3F));
        }
    }
    return out;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n')
            continue;
        lines.push_back(text.substr(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
        start = i + 1;
    }
    if (start < text.size())
        lines.push_back(text.substr(start));
    return lines;
}

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\f' || c == '\v';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

// Reads tokens from one line: numbers, single words, and the rest of the line.
class Tokens {
  public:
    explicit Tokens(std::string_view text) : text_(text) {}
    bool Done() {
        SkipSpace();
        return text_.empty();
    }
    std::string_view Word() {
        SkipSpace();
        std::size_t n = 0;
        while (n < text_.size() && !IsSpace(text_[n]))
            ++n;
        const std::string_view word = text_.substr(0, n);
        text_.remove_prefix(n);
        return word;
    }
    std::string_view Rest() {
        const std::string_view rest = Trimmed(text_);
        text_ = {};
        return rest;
    }
    char Peek() {
        SkipSpace();
        return text_.empty() ? '\0' : text_.front();
    }
    void Skip(std::size_t n) { text_.remove_prefix(std::min(n, text_.size())); }

  private:
    void SkipSpace() {
        while (!text_.empty() && IsSpace(text_.front()))
            text_.remove_prefix(1);
    }
    std::string_view text_;
};

std::optional<double> Number(std::string_view word) {
    if (!word.empty() && word.front() == '+')
        word.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

class Reader {
  public:
    DesignRead Read(std::string_view bytes) {
        if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
            bytes.remove_prefix(3);
        const std::string text = IsValidUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
        const auto lines = SplitLines(text);
        for (std::size_t i = 0; i < lines.size() && error_.empty(); ++i) {
            line_ = int(i) + 1;
            Line(lines[i]);
        }
        if (error_.empty())
            Finish(int(lines.size()));
        DesignRead read;
        read.ok = error_.empty();
        read.error = error_;
        if (read.ok)
            read.design = std::move(design_);
        return read;
    }

  private:
    void Fail(const std::string& what) {
        if (error_.empty())
            error_ = "line " + std::to_string(line_) + ": " + what;
    }

    void Line(std::string_view line) {
        if (Trimmed(line).empty())
            return;
        if (line.substr(0, 6) == "GemCad") {
            tier_ = nullptr;
            return;
        }
        Tokens tokens(line.substr(1));
        switch (line.front()) {
            case 'g':
                tier_ = nullptr;
                return Gear(tokens);
            case 'y':
                tier_ = nullptr;
                return Symmetry(tokens);
            case 'I':
                tier_ = nullptr;
                return Index(tokens);
            case 'H':
                tier_ = nullptr;
                design_.titles.emplace_back(Text(line));
                return;
            case 'F':
                tier_ = nullptr;
                design_.footnotes.emplace_back(Text(line));
                return;
            case 'a':
                return NewTier(tokens);
            default:
                if (tier_ == nullptr)
                    return Fail("'" + std::string(Trimmed(line).substr(0, 20)) +
                                "' is neither a record nor part of a facet tier");
                return TierTokens(Tokens(line));
        }
    }

    static std::string Text(std::string_view line) {
        line.remove_prefix(1);
        if (!line.empty() && line.front() == ' ')
            line.remove_prefix(1);
        while (!line.empty() && IsSpace(line.back()))
            line.remove_suffix(1);
        return std::string(line);
    }

    std::optional<double> NumberOf(Tokens& tokens, const char* what) {
        const std::string_view word = tokens.Word();
        const auto value = Number(word);
        if (!value)
            Fail(word.empty() ? std::string("no ") + what
                              : "'" + std::string(word) + "' is not a number (" + what + ")");
        return value;
    }

    void Gear(Tokens& tokens) {
        const auto teeth = NumberOf(tokens, "gear teeth");
        if (!teeth)
            return;
        if (*teeth != std::floor(*teeth) || *teeth == 0.0 || std::abs(*teeth) > kMaxTeeth)
            return Fail("a gear of " + Shown(*teeth) + " teeth: a gear has 1 to 720 teeth");
        design_.gear = int(*teeth);
        if (!tokens.Done())
            if (const auto offset = NumberOf(tokens, "gear offset"))
                design_.offset = *offset;
    }

    void Symmetry(Tokens& tokens) {
        const auto fold = NumberOf(tokens, "symmetry");
        if (!fold)
            return;
        design_.symmetry = int(std::clamp(*fold, 0.0, 1e6));
        const std::string_view flag = tokens.Word();
        design_.mirror = !flag.empty() && (flag.front() == 'y' || flag.front() == 'Y');
    }

    void Index(Tokens& tokens) {
        if (const auto index = NumberOf(tokens, "refractive index"))
            design_.index = *index;
    }

    void NewTier(Tokens& tokens) {
        const std::string_view angleWord = tokens.Word();
        const auto angle = Number(angleWord);
        if (!angle || std::abs(*angle) > 90.0)
            return Fail("'" + std::string(angleWord) + "' is not a facet angle of -90 to 90");
        const auto distance = NumberOf(tokens, "facet distance");
        if (!distance)
            return;
        DesignTier tier;
        tier.line = line_;
        tier.angle = std::abs(*angle);
        tier.below = angleWord.front() == '-' || (*angle == 0.0 && *distance < 0.0);
        tier.distance = *angle == 0.0 ? std::abs(*distance) : *distance;
        if (!(tier.distance > 0.0))
            return Fail("the tier's distance " + Shown(*distance) +
                        " does not lie outside the stone's centre");
        design_.tiers.push_back(std::move(tier));
        tier_ = &design_.tiers.back();
        TierTokens(tokens);
    }

    // Indices, names ("n NAME" names the index before it) and the instruction ("G TEXT" to
    // the end of the line).
    void TierTokens(Tokens tokens) {
        while (!tokens.Done() && error_.empty()) {
            const char next = tokens.Peek();
            if (next == 'G') {
                tokens.Skip(1);
                const std::string_view rest = tokens.Rest();
                tier_->instruction += (tier_->instruction.empty() ? "" : " ") + std::string(rest);
                return;
            }
            if (next == 'n') {
                tokens.Skip(1);
                const std::string_view name = tokens.Word();
                if (tier_->indices.empty())
                    return Fail("a facet name comes before any index");
                tier_->names.back() = std::string(name);
                continue;
            }
            const auto index = NumberOf(tokens, "gear index");
            if (!index)
                return;
            tier_->indices.push_back(*index);
            tier_->names.emplace_back();
        }
    }

    void Finish(int lines) {
        for (const DesignTier& tier : design_.tiers)
            if (tier.indices.empty()) {
                line_ = tier.line;
                return Fail("the tier names no gear index");
            }
        const double teeth = std::abs(design_.gear);
        for (DesignTier& tier : design_.tiers)
            for (double& index : tier.indices)
                if (index < -teeth || index > teeth) {
                    line_ = tier.line;
                    return Fail("the index " + Shown(index) + " is beyond the gear's " +
                                std::to_string(design_.gear) + " teeth");
                }
        if (design_.tiers.empty()) {
            line_ = lines;
            Fail("the file holds no facet tiers");
        }
    }

    Design design_;
    std::string error_;
    DesignTier* tier_ = nullptr;
    int line_ = 0;
};

}  // namespace

double IndexAzimuth(const Design& design, double index) {
    const double teeth = design.gear == 0 ? 96.0 : double(design.gear);
    return index / teeth * 360.0 + design.offset;
}

DesignRead ReadDesignText(std::string_view bytes) {
    return Reader().Read(bytes);
}

}  // namespace kirameki
