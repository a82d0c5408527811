#include "logic/texts.h"

#include <cstddef>

namespace training {

namespace {

struct Entry {
    const wchar_t* english;
    const wchar_t* chinese;
};

// In the order of the enumeration.
constexpr Entry kTexts[] = {
    {L"A short training for eye and memory", L"眼力与记忆的小训练"},
    {L"Reaction", L"反应训练"},
    {L"Memory", L"记忆训练"},
    {L"Press the lamp that lights", L"哪盏灯亮，就按哪盏灯"},
    {L"Repeat the lamps in order", L"按顺序重复亮过的灯"},
    {L"Settings", L"设置"},
    {L"Sounds", L"音效"},
    {L"Music", L"音乐"},
    {L"Limit the time", L"限制训练时间"},
    {L"%d min", L"%d 分钟"},
    {L"中文", L"English"},
    {L"Best %d", L"最高分 %d"},
    {L"Level %d", L"第 %d 级"},
    {L"%d points", L"%d 分"},
    {L"Get ready", L"准备"},
    {L"Watch", L"请看"},
    {L"Your turn", L"轮到你了"},
    {L"Hit it!", L"快按！"},
    {L"Leave the red one", L"红灯不要按"},
    {L"That was it", L"本轮结束"},
    {L"Well done", L"训练完成"},
    {L"New best!", L"新纪录！"},
    {L"Level reached  %d", L"达到级别  %d"},
    {L"Accuracy  %d %%", L"正确率  %d %%"},
    {L"Place %d of your best five", L"排在最好五次中的第 %d 位"},
    {L"Not among your best five yet", L"还没有进入最好的五次"},
    {L"Again", L"再来一次"},
    {L"Home", L"返回首页"},
    {L"Time left", L"剩余时间"},
    {L"F12 picture    Esc quit", L"F12 截图    Esc 退出"},
};
static_assert(sizeof(kTexts) / sizeof(kTexts[0]) == static_cast<size_t>(Text::kCount), "a text is missing");

}  // namespace

const wchar_t* Say(Text text, Language language) {
    const Entry& entry = kTexts[static_cast<size_t>(text)];
    return language == Language::kChinese ? entry.chinese : entry.english;
}

}  // namespace training
