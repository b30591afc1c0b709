#include "xqtgl/xQGLVectorFont.h"

#include <array>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace xqtgl {

namespace {

// The glyphs are drawn on a small grid: x from 0 to 8, y from -3 to 10 with
// the cap height at 10 and the x-height at 6. Each text is a list of line
// strips separated by '|', a strip being "x y x y ...". Dots are tiny closed
// squares so that they stay visible at label sizes.
constexpr const char* kDot0 = "3.6 0 4.4 0 4.4 0.8 3.6 0.8 3.6 0";
constexpr const char* kDot5 = "3.6 4.6 4.4 4.6 4.4 5.4 3.6 5.4 3.6 4.6";
constexpr const char* kBowlRight = "7 4.5 5 6 2 6 0 4.5 0 1.5 2 0 5 0 7 1.5";
constexpr const char* kBowlLeft = "0 4.5 2 6 5 6 7 4.5 7 1.5 5 0 2 0 0 1.5";
constexpr const char* kRoundCap = "2 0 0 2 0 8 2 10 6 10 8 8 8 2 6 0 2 0";
constexpr const char* kLoopP = "0 0 0 10 6 10 8 8 8 7 6 5 0 5";

struct GlyphText {
    char c;
    std::string strips;
};

std::vector<GlyphText> glyph_texts()
{
    using std::string;
    return {
        {'!', string("4 10 4 2.5|") + kDot0},
        {'"', "3 10 3 7|5 10 5 7"},
        {'#', "2.5 0 3.5 10|5 0 6 10|1 3.5 7.5 3.5|1 6.5 7.5 6.5"},
        {'$', "7 8 5 9 2 9 0 7.5 0 6.5 2 5 5 5 7 3.5 7 2.5 5 1 2 1 0 2|3.5 10 3.5 0"},
        {'%', "0 0 7 10|0 10 2 10 2 8 0 8 0 10|5 2 7 2 7 0 5 0 5 2"},
        {'&', "7 0 1 7 1 9 2 10 4 10 5 9 5 8 0 3 0 1 1 0 4 0 7 4"},
        {'\'', "4 10 4 7"},
        {'(', "5.5 10 4 8 3.5 5 3.5 3 4 0.5 5.5 -1.5"},
        {')', "2.5 10 4 8 4.5 5 4.5 3 4 0.5 2.5 -1.5"},
        {'*', "4 8 4 2|1.4 6.5 6.6 3.5|1.4 3.5 6.6 6.5"},
        {'+', "4 8 4 2|1 5 7 5"},
        {',', "4.4 0.8 4.4 0 3 -2"},
        {'-', "1 5 7 5"},
        {'.', kDot0},
        {'/', "1 -1 7 10"},
        {'0', "2 0 0 2 0 8 2 10 5 10 7 8 7 2 5 0 2 0|6.5 8.5 0.5 1.5"},
        {'1', "1.5 8 3.5 10 3.5 0|1.5 0 5.5 0"},
        {'2', "0 8 2 10 5 10 7 8 7 6 0 0 7 0"},
        {'3', "0 9 2 10 5 10 7 8.5 7 7 5 5.5 2.5 5.5|5 5.5 7 4 7 1.5 5 0 2 0 0 1"},
        {'4', "5 0 5 10 0 3 7.5 3"},
        {'5', "7 10 0.5 10 0 5.5 2 6.5 5 6.5 7 5 7 1.5 5 0 2 0 0 1"},
        {'6', "6.5 10 4 10 1 7 0 4 0 1.5 2 0 5 0 7 1.5 7 4 5 5.5 2 5.5 0 3.5"},
        {'7', "0 10 7 10 2.5 0"},
        {'8', "2 5.5 0 7 0 8.5 2 10 5 10 7 8.5 7 7 5 5.5 2 5.5 0 4 0 1.5 2 0 5 0 7 1.5 7 4 5 5.5"},
        {'9', "7 6.5 5 4.5 2 4.5 0 6 0 8.5 2 10 5 10 7 8.5 7 6 6 3 3 0 0.5 0"},
        {':', string(kDot0) + "|" + kDot5},
        {';', string("4.4 0.8 4.4 0 3 -2|") + kDot5},
        {'<', "7 8 1 5 7 2"},
        {'=', "1 6.5 7 6.5|1 3.5 7 3.5"},
        {'>', "1 8 7 5 1 2"},
        {'?', string("0.5 8 2 10 5 10 7 8.5 7 7 4 5 4 2.5|") + kDot0},
        {'@', "5.5 3.5 3 3.5 2.5 5 3 6.5 5.5 6.5 5.5 3.5 7 3.5 8 5 8 7 6 10 2 10 0 8 0 2 2 0 6 0"},
        {'A', "0 0 4 10 8 0|1.6 4 6.4 4"},
        {'B', "0 0 0 10 5 10 7 9 7 6.5 5 5 0 5|5 5 7.5 3.5 7.5 1.5 5.5 0 0 0"},
        {'C', "8 8 6 10 2 10 0 8 0 2 2 0 6 0 8 2"},
        {'D', "0 0 0 10 5 10 8 7 8 3 5 0 0 0"},
        {'E', "8 10 0 10 0 0 8 0|0 5 6 5"},
        {'F', "8 10 0 10 0 0|0 5 6 5"},
        {'G', "8 8 6 10 2 10 0 8 0 2 2 0 6 0 8 2 8 4 5 4"},
        {'H', "0 0 0 10|8 0 8 10|0 5 8 5"},
        {'I', "2 10 6 10|4 10 4 0|2 0 6 0"},
        {'J', "8 10 8 2 6 0 2 0 0 2"},
        {'K', "0 0 0 10|8 10 0 4|2.4 6 8 0"},
        {'L', "0 10 0 0 8 0"},
        {'M', "0 0 0 10 4 4 8 10 8 0"},
        {'N', "0 0 0 10 8 0 8 10"},
        {'O', kRoundCap},
        {'P', kLoopP},
        {'Q', string(kRoundCap) + "|5 3 8 0"},
        {'R', string(kLoopP) + "|4 5 8 0"},
        {'S', "8 8 6 10 2 10 0 8 0 7 2 5 6 5 8 3 8 2 6 0 2 0 0 2"},
        {'T', "0 10 8 10|4 10 4 0"},
        {'U', "0 10 0 2 2 0 6 0 8 2 8 10"},
        {'V', "0 10 4 0 8 10"},
        {'W', "0 10 2 0 4 6 6 0 8 10"},
        {'X', "0 0 8 10|0 10 8 0"},
        {'Y', "0 10 4 5 8 10|4 5 4 0"},
        {'Z', "0 10 8 10 0 0 8 0"},
        {'[', "5.5 10 3 10 3 -1.5 5.5 -1.5"},
        {'\\', "1 10 7 -1"},
        {']', "2.5 10 5 10 5 -1.5 2.5 -1.5"},
        {'^', "1.5 7 4 10 6.5 7"},
        {'_', "0 -1.5 8 -1.5"},
        {'`', "3 10 5 8"},
        {'a', string("7 6 7 0|") + kBowlRight},
        {'b', string("0 10 0 0|") + kBowlLeft},
        {'c', "7 5 5 6 2 6 0 4.5 0 1.5 2 0 5 0 7 1"},
        {'d', string("7 10 7 0|") + kBowlRight},
        {'e', "0 3 7 3 7 4.5 5 6 2 6 0 4.5 0 1.5 2 0 5 0 7 1"},
        {'f', "6 10 4 10 2.5 8.5 2.5 0|0 6 5 6"},
        {'g', string("7 6 7 -1.5 5 -3 2 -3 0 -2|") + kBowlRight},
        {'h', "0 10 0 0|0 4.5 2 6 5 6 7 4.5 7 0"},
        {'i', "3.5 6 3.5 0|3.1 7.8 3.9 7.8 3.9 8.6 3.1 8.6 3.1 7.8"},
        {'j', "4.5 6 4.5 -1.5 3 -3 1 -3|4.1 7.8 4.9 7.8 4.9 8.6 4.1 8.6 4.1 7.8"},
        {'k', "0 10 0 0|6 6 0 2|2 3.3 7 0"},
        {'l', "3.5 10 3.5 1 4.5 0"},
        {'m', "0 0 0 6|0 5 1.5 6 2.5 6 3.5 5 3.5 0|3.5 5 5 6 6 6 7 5 7 0"},
        {'n', "0 0 0 6|0 4.5 2 6 5 6 7 4.5 7 0"},
        {'o', "2 0 0 1.5 0 4.5 2 6 5 6 7 4.5 7 1.5 5 0 2 0"},
        {'p', string("0 6 0 -3|") + kBowlLeft},
        {'q', string("7 6 7 -3|") + kBowlRight},
        {'r', "0 0 0 6|0 4 2 6 5 6 7 5"},
        {'s', "7 5 5 6 2 6 0 5 0 4 2 3 5 3 7 2 7 1 5 0 2 0 0 1"},
        {'t', "2.5 9 2.5 1 4 0 6 0|0 6 5.5 6"},
        {'u', "0 6 0 1.5 2 0 5 0 7 1.5|7 6 7 0"},
        {'v', "0 6 3.5 0 7 6"},
        {'w', "0 6 1.75 0 3.5 4.5 5.25 0 7 6"},
        {'x', "0 0 7 6|0 6 7 0"},
        {'y', "0 6 3.5 0|7 6 1.8 -3"},
        {'z', "0 6 7 6 0 0 7 0"},
        {'{', "5.5 10 4 9 4 6 3 5 4 4 4 -0.5 5.5 -1.5"},
        {'|', "4 10 4 -2"},
        {'}', "2.5 10 4 9 4 6 5 5 4 4 4 -0.5 2.5 -1.5"},
        {'~', "0.5 4.5 2 6 4 5 6 4 7.5 5.5"},
    };
}

// Grid units to font units: ten per unit, shifted right by a side bearing
// that centres the eight-unit-wide drawing area in the cell.
constexpr double kScale = 10.0;
constexpr double kBearing = 17.0;
constexpr int kLineStrip = 1;
constexpr int kEnd = -1;

std::vector<int> to_runs(const std::string& strips)
{
    std::vector<int> runs;
    std::istringstream all(strips);
    std::string strip;
    while (std::getline(all, strip, '|')) {
        std::istringstream coordinates(strip);
        std::vector<int> points;
        double x = 0.0;
        double y = 0.0;
        while (coordinates >> x >> y) {
            points.push_back(static_cast<int>(std::lround(kBearing + x * kScale)));
            points.push_back(static_cast<int>(std::lround(y * kScale)));
        }
        runs.push_back(kLineStrip);
        runs.push_back(static_cast<int>(points.size() / 2));
        runs.insert(runs.end(), points.begin(), points.end());
    }
    runs.push_back(kEnd);
    return runs;
}

using GlyphTable = std::array<std::vector<int>, 256>;

GlyphTable build_table()
{
    GlyphTable table;
    table[static_cast<unsigned char>(' ')] = {kEnd};
    for (const GlyphText& glyph : glyph_texts())
        table[static_cast<unsigned char>(glyph.c)] = to_runs(glyph.strips);
    return table;
}

} // namespace

const int* vector_font_glyph(unsigned char c)
{
    static const GlyphTable table = build_table();
    const std::vector<int>& runs = table[c];
    return runs.empty() ? nullptr : runs.data();
}

} // namespace xqtgl
