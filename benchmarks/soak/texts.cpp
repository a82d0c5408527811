#include <string>

#include "toys.h"

namespace soak {

namespace {

constexpr int kKeptCharacters = 300, kAllCharacters = 3000;
constexpr size_t kMostLines = 10, kMostPassing = 3;

wchar_t Character(int number) {
    return static_cast<wchar_t>(0x4E00 + number * 6);
}

struct Line {
    GfxFont* font;
    float x, y;
    std::wstring text;
    std::unique_ptr<GfxFont> own_font;  // one that goes with the line
};

class Texts : public Toys {
 public:
    Texts() {
        // All that they will ever draw, so that their glyphs do not count as growth.
        std::wstring all = L"0123456789: ";
        for (int i = 0; i < kKeptCharacters; ++i)
            all += Character(i);
        for (int size : {16, 24, 32, 48}) {
            kept_.push_back(std::make_unique<GfxFont>("SimSun", size, 0, 0, 1));
            kept_.back()->GetTextSize(all.c_str());
        }
        May("write a line", 60, [this](Dice& dice) {
            if (lines_.size() >= kMostLines) dice.TakeFrom(lines_);
            Write(lines_, dice, dice.Of(kept_).get(), kKeptCharacters);
        });
        May("write with a new font", 12, [this](Dice& dice) { WriteWithNewFont(dice); });
        May("change a font", 10, [this](Dice& dice) {
            GfxFont& font = *dice.Of(kept_);
            font.SetColor(0x40000000u + static_cast<DWORD>(dice.Below(0x7FFFFFFF)), dice.Below(5) - 1);
            font.SetKerningWidth(dice.Between(-2, 8));
        });
    }

    void Draw() override {
        for (const auto* lines : {&lines_, &passing_})
            for (const Line& line : *lines)
                line.font->Render(line.x, line.y, line.text.c_str());
        for (const Line& line : lines_)
            line.font->Print(line.x, line.y - 50, "%d: %d", static_cast<int>(line.x), ++printed_ % 1000);
    }
    void Rest() override {
        lines_.clear();
        passing_.clear();
    }

 private:
    void Write(std::vector<Line>& lines, Dice& dice, GfxFont* font, int among) {
        std::wstring text;
        for (int i = dice.Below(20); i >= 0; --i)
            text += i % 9 == 8 ? L'\n' : Character(dice.Below(among));
        lines.push_back({font, dice.Between(0, 700), dice.Between(50, 550), text, nullptr});
    }
    void WriteWithNewFont(Dice& dice) {
        if (passing_.size() >= kMostPassing) dice.TakeFrom(passing_);
        const char* face = dice.Chance(90) ? "SimSun" : "no such face";
        auto font = std::make_unique<GfxFont>(face, 8 + dice.Below(60), dice.Chance(30), dice.Chance(30),
                                              dice.Chance(80));
        Write(passing_, dice, font.get(), kAllCharacters);
        passing_.back().own_font = std::move(font);
    }

    std::vector<std::unique_ptr<GfxFont>> kept_;
    std::vector<Line> lines_, passing_;
    int printed_ = 0;
};

}  // namespace

std::unique_ptr<Toys> MakeTexts() {
    return std::make_unique<Texts>();
}

}  // namespace soak
