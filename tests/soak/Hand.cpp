// SPDX-License-Identifier: MIT
#include "tests/soak/Hand.h"

#include <functional>
#include <iterator>
#include <utility>

namespace soak {

namespace {

QStringList words(const QString& line)
{
    return line.split(QLatin1Char(' '));
}

QStringList keys(const QString& names)
{
    return words(QStringLiteral("key --clearmodifiers --delay 20 ") + names);
}

QStringList click(int button)
{
    return { QStringLiteral("click"), QString::number(button) };
}

QStringList typed(const QString& text)
{
    return { QStringLiteral("type"),
             QStringLiteral("--clearmodifiers"),
             QStringLiteral("--delay"),
             QStringLiteral("5"),
             QStringLiteral("--args"),
             QStringLiteral("1"),
             text };
}

/// Dialogs and menus come a moment after what asks for them.
QStringList pause()
{
    return { QStringLiteral("sleep"), QStringLiteral("0.4") };
}

template <std::size_t N>
QString oneOf(const char* const (&all)[N], int index)
{
    return QLatin1String(all[index]);
}

/// Keys that open the menu with this mnemonic and go down so many entries.
QStringList menu(char letter, int down)
{
    QStringList path { QStringLiteral("alt+") + QLatin1Char(letter) };
    for (int step = 0; step < down; ++step)
        path << QStringLiteral("Down");
    return keys(path.join(QLatin1Char(' ')));
}

constexpr const char* kKeys[] = { "Left",       "Right",      "Up",        "Down",      "Home",   "End",
                                  "Prior",      "Next",       "Escape",    "Return",    "Tab",    "shift+Tab",
                                  "space",      "Delete",     "BackSpace", "F1",        "F5",     "F6",
                                  "shift+F6",   "F7",         "F8",        "F10",       "Menu",   "ctrl+a",
                                  "ctrl+c",     "ctrl+v",     "ctrl+z",    "ctrl+s",    "ctrl+n", "ctrl+plus",
                                  "ctrl+minus", "shift+Left", "ctrl+Left", "alt+v",     "1",      "6",
                                  "0",          "c",          "M",         "semicolon", "comma",  "colon" };

constexpr const char* kBars[] = { "SH600030.csv", "SH510050.csv", "SFCU00.csv", "DFM00.csv", "SH000001.csv" };
constexpr const char* kSearches[] = { "600030", "zxzq", "c", "5100", "xyz" };
constexpr const char* kFormulas[] = { "X:MA(C,5);", "Y:REF(C,;", "Z:SUM(V,0)/COUNT(C>O,N);", "A:=1;",
                                      "STICKLINE(C>O,O,C,2,0);" };
constexpr const char* kLists[] = { "list.csv", "weights.csv", "broken.xlsx" };
constexpr const char* kDates[] = { "2024-03-05", "20230601", "1.2.1901", "tomorrow", "2099-12-31" };

} // namespace

Hand::Hand(unsigned seed, const QString& folder)
    : m_random(seed)
    , m_folder(folder)
{
}

QStringList Hand::nextArguments()
{
    switch (below(6)) {
    case 0: return { QStringLiteral("--follow"), file("growing.csv") };
    case 1: return { QStringLiteral("--lang"), QStringLiteral("en") };
    case 2: return { QStringLiteral("--lang"), QStringLiteral("zh"), file("SFCU00.csv") };
    default: return { file(kBars[below(std::size(kBars))]) };
    }
}

QStringList Hand::nextEvent()
{
    return below(3) == 0 ? toolEvent() : plainEvent();
}

QStringList Hand::move()
{
    return { QStringLiteral("mousemove"), QString::number(below(kWidth)), QString::number(below(kHeight)) };
}

QStringList Hand::moveOverChart()
{
    constexpr int left = 330, right = 1200, top = 130, bottom = 700; // inside it in the first arrangement
    return { QStringLiteral("mousemove"), QString::number(left + below(right - left)),
             QString::number(top + below(bottom - top)) };
}

QStringList Hand::drag()
{
    return QStringList { QStringLiteral("mousedown"), QStringLiteral("1") } + move() + move()
        + QStringList { QStringLiteral("mouseup"), QStringLiteral("1") };
}

QStringList Hand::plainEvent()
{
    switch (below(10)) {
    case 0:
    case 1:
    case 2: return move() + click(below(8) == 0 ? 3 : 1);
    case 3: return move() + words(QStringLiteral("click --repeat 2 --delay 30 1"));
    case 4: return move() + drag();
    case 5: return move() + click(4 + below(2));
    case 6: return move();
    default: return keys(oneOf(kKeys, below(std::size(kKeys))));
    }
}

QStringList Hand::toolEvent()
{
    const auto number = [this](int limit) { return QString::number(below(limit)); };
    const auto opened = [](const QStringList& how, const QString& text) {
        return how + pause() + typed(text) + keys(QStringLiteral("Return"));
    };
    const auto chosen = [](const QStringList& how) { return how + keys(QStringLiteral("Return")); };
    const auto bars = [this] { return file(kBars[below(std::size(kBars))]); };
    const std::pair<const char*, std::function<QStringList()>> tools[] = {
        { "period", [&] { return keys(QStringLiteral("ctrl+") + number(10)); } },
        { "value scale", [&] { return keys(QStringLiteral("ctrl+alt+") + QString::number(1 + below(4))); } },
        { "margin, magnet, moves",
          [&] { return chosen(menu('c', 1 + below(4)) + keys(QStringLiteral("Right"))); } },
        { "date",
          [&] { return opened(keys(QStringLiteral("ctrl+g")), oneOf(kDates, below(std::size(kDates)))); } },
        { "search",
          [&] {
              return opened(keys(QStringLiteral("ctrl+f")), oneOf(kSearches, below(std::size(kSearches))));
          } },
        { "open", [&] { return opened(keys(QStringLiteral("ctrl+o")), bars()); } },
        { "trades", [&] { return opened(chosen(menu('f', 1)), file("SYNTHETIC-five-levels.csv")); } },
        { "overlay", [&] { return opened(chosen(menu('o', 0)), bars()); } },
        { "no overlay", [&] { return chosen(menu('o', 1)); } },
        { "index", [&] { return opened(chosen(menu('o', 2)), file("SH000001.csv")); } },
        { "follow", [&] { return opened(chosen(menu('l', 0)), file("growing.csv")); } },
        { "follow no more", [&] { return chosen(menu('l', 1)); } },
        { "replay", [&] { return chosen(menu('l', 2 + below(2))); } },
        { "language, skin, colours, panels",
          [&] {
              QString path = QStringLiteral("Right");
              for (int step = below(6); step > 0; --step)
                  path += QStringLiteral(" Down");
              return chosen(menu('v', below(6)) + keys(path));
          } },
        { "pane's menu",
          [&] {
              QString path = QStringLiteral("Down");
              for (int step = below(12); step > 0; --step)
                  path += below(4) == 0 ? QStringLiteral(" Right") : QStringLiteral(" Down");
              return moveOverChart() + click(3) + pause() + chosen(keys(path));
          } },
        { "price line",
          [&] { return moveOverChart() + click(3) + pause() + keys(QStringLiteral("Down Return")); } },
        { "measure",
          [&] {
              return moveOverChart() + words(QStringLiteral("keydown shift mousedown 1")) + moveOverChart()
                  + moveOverChart() + words(QStringLiteral("mouseup 1 keyup shift"));
          } },
        { "formula editor",
          [&] {
              return keys(QStringLiteral("ctrl+e")) + pause() + moveOverChart() + click(1)
                  + opened(keys(QStringLiteral("ctrl+a")), oneOf(kFormulas, below(std::size(kFormulas))))
                  + keys(below(2) == 0 ? QStringLiteral("ctrl+s") : QStringLiteral("Escape"));
          } },
        { "formula list", [&] { return opened(keys(QStringLiteral("ctrl+i")), QStringLiteral("kdj")); } },
        { "import", [&] { return opened(chosen(menu('f', 2)), file(kLists[below(std::size(kLists))])); } },
        { "paste", [&] { return keys(QStringLiteral("ctrl+v")); } },
        { "backup, restore", [&] { return chosen(menu('t', 3 + below(3))); } },
        { "picture", [&] { return opened(keys(QStringLiteral("ctrl+s")), file("picture-") + number(5)); } },
        { "copy of the picture", [&] { return keys(QStringLiteral("ctrl+shift+c")); } },
        { "print preview",
          [&] { return keys(QStringLiteral("ctrl+p")) + pause() + keys(QStringLiteral("Escape")); } },
        { "end", [&] { return keys(QStringLiteral("Escape Escape Escape ctrl+q")) + pause(); } },
        { "keys",
          [&] {
              return opened(keys(QStringLiteral("F1")), QStringLiteral("ctrl"))
                  + keys(QStringLiteral("Escape"));
          } },
    };
    const auto& [name, use] = tools[below(std::size(tools))];
    ++m_taken[QLatin1String(name)];
    // Otherwise the last tool's dialog takes the keys of this one: true half the time, as it is with people.
    const QStringList first = below(2) == 0 ? keys(QStringLiteral("Escape Escape")) : QStringList();
    return first + use();
}

} // namespace soak
