#include "model/stone_tables.h"

namespace kirameki {

namespace {

std::array<StoneRecord, kStoneCount> MakeStones() {
    std::array<StoneRecord, kStoneCount> stones = {{
        {"Diamond", "ダイアモンド", 0, 0, 242, 0.025},
        {"Sapphire", "サファイア", 3, 6, 177, 0.02},
        {"Emerald", "エメラルド", 2, 7, 158, 0.03},
        {"Topaz", "トパーズ", 4, 8, 163, 0.02},
        {"Vorane", "ヴォレーン", 1, 12, 189, 0.035},
        {"Crystal", "クリスタル", 5, 10, 155, 0.02},
        {"Glass", "ガラス", 0, 14, 142, 0.01},
        {"Mandarin V.", "マンダリン V.", 6, 2, 0, 0.0},
    }};
    stones[7].index100 = stones[4].index100;
    stones[7].coefficient = stones[4].coefficient;
    return stones;
}

}  // namespace

const std::array<StoneRecord, kStoneCount>& Stones() {
    static const std::array<StoneRecord, kStoneCount> stones = MakeStones();
    return stones;
}

const std::array<ColourRecord, kColourCount>& Colours() {
    // "Violet" absorbs red only and so renders blue-green: that is the intended table.
    static const std::array<ColourRecord, kColourCount> colours = {{
        {"Colorless", "無色", {0.0, 0.0, 0.0}},
        {"Red", "赤", {0.0, 0.03, 0.03}},
        {"Green", "緑", {0.03, 0.0, 0.03}},
        {"Blue", "青", {0.025, 0.01, 0.0}},
        {"Yellow", "黄", {0.0, 0.01, 0.05}},
        {"Purple", "紫", {0.0, 0.03, 0.0}},
        {"Orange", "オレンジ", {0.0, 0.02, 0.05}},
        {"Pink", "ピンク", {0.0, 0.015, 0.01}},
        {"Violet", "バイオレット", {0.03, 0.0, 0.0}},
        {"Dark Blue", "ダークブルー", {0.02, 0.02, 0.0}},
        {"Light Yellow", "ライトイエロー", {0.0, 0.0, 0.002}},
    }};
    return colours;
}

const std::array<CutName, 28>& CutNames() {
    static const std::array<CutName, 28> names = {{
        {"BrilliantCut (R)", "ブリリアント (R)"},
        {"BrilliantCut (O)", "ブリリアント (O)"},
        {"BrilliantCut 2 (R)", "ブリリアントⅡ(R)"},
        {"BrilliantCut 2 (O)", "ブリリアントⅡ(O)"},
        {"BrilliantCut 3 (R)", "ブリリアントⅢ(R)"},
        {"BrilliantCut 3 (O)", "ブリリアントⅢ(O)"},
        {"Antiq CushionCut", "A.クッションカット"},
        {"EmeraldCut", "エメラルドカット"},
        {"ScissorsCut", "シザースカット"},
        {"MazarinCut", "マザリンカット"},
        {"Old SingleCut", "オールドシングル"},
        {"BrioletteCut", "ブリオレットカット"},
        {"Double RoseCut", "ダブルローズカット"},
        {"BaguetteCut", "バゲットカット"},
        {"Sphere", "球体"},
        {"60 hedron", "60面体"},
        {"32 hedron", "32面体"},
        {"reg. 20 hedron", "正20面体"},
        {"reg. 12 hedron", "正12面体"},
        {"reg. ８ hedron", "正８面体"},
        {"reg. ６ hedron", "正６面体"},
        {"reg. ４ hedron", "正４面体"},
        {"---------------", "---------------"},
        {"Ellipsoid *", "楕円体 *"},
        {"Prism *", "柱体 *"},
        {"Pyramid *", "錘体 *"},
        {"14 hedron *", "14面体 *"},
        {"26 hedron *", "26面体 *"},
    }};
    return names;
}

const std::array<std::array<double, 3>, kPolygonColourCount>& PolygonColours() {
    // White, Red, Green, Blue, Yellow, Purple, Chocolate, Orange, and one without a menu entry.
    static const std::array<std::array<double, 3>, kPolygonColourCount> colours = {{
        {1.0, 1.0, 1.0},
        {1.0, 0.0, 0.0},
        {0.0, 0.7, 0.0},
        {0.3, 0.3, 0.8},
        {0.98, 0.89, 0.0},
        {0.6, 0.2, 0.8},
        {0.8, 0.4, 0.0},
        {0.98, 0.4, 0.0},
        {0.0, 0.82, 0.62},
    }};
    return colours;
}

bool IsStoneIndex(int stone) {
    return stone >= 0 && stone < kStoneCount;
}
bool IsColourIndex(int colour) {
    return colour >= 0 && colour < kColourCount;
}
bool IsPolygonColourIndex(int polygonColour) {
    return polygonColour >= 0 && polygonColour < kPolygonColourCount;
}

}  // namespace kirameki
