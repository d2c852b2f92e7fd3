#include "title/internal/TextWidths.h"

#include "host/WB/CSimpleText.h"

#include <QHash>

#include <utility>
#include <vector>

namespace TC::detail {

namespace {

/// Widths in one font, in two generations: when the young one is full it becomes the old one, and what was
/// not asked for since then is dropped.
class FontWidths
{
public:
    explicit FontWidths(const QFont& font)
        : m_font(font)
    {
    }

    bool isOf(const QFont& font) const { return m_font == font; }

    int width(const QString& text)
    {
        const auto young = m_young.constFind(text);
        if (young != m_young.constEnd())
            return *young;
        const auto old = m_old.constFind(text);
        const int width = old != m_old.constEnd() ? *old : WB::CSimpleText::getSize(text, m_font).width();
        if (m_young.size() >= kGeneration)
            m_old = std::exchange(m_young, {});
        m_young.insert(text, width);
        return width;
    }

private:
    static constexpr int kGeneration = 1024;

    QFont m_font;
    QHash<QString, int> m_young, m_old;
};

/// By font, in the order of first use.
std::vector<FontWidths>& keptWidths()
{
    static std::vector<FontWidths> kept;
    return kept;
}

} // namespace

int textWidth(const QString& text, const QFont& font)
{
    constexpr std::size_t mostFonts = 4; // a strip uses three
    std::vector<FontWidths>& kept = keptWidths();
    for (FontWidths& widths : kept) {
        if (widths.isOf(font))
            return widths.width(text);
    }
    if (kept.size() >= mostFonts)
        kept.erase(kept.begin());
    kept.emplace_back(font);
    return kept.back().width(text);
}

void forgetTextWidths()
{
    keptWidths().clear();
}

} // namespace TC::detail
