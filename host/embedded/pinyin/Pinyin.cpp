// SPDX-License-Identifier: MIT
#include "host/TC/Pinyin.h"

#include <algorithm>
#include <string_view>

namespace {

#include "host/embedded/pinyin/PinyinInitials.inc"

constexpr char16_t kFirstCharacter = 0x4E00;

/// Whether a character of a text may be typed as `typed` (both in lower case).
bool answersTo(char16_t character, char16_t typed)
{
    if (character == typed)
        return true;
    if (typed < u'a' || typed > u'z' || character < kFirstCharacter)
        return false;
    const std::size_t index = static_cast<std::size_t>(character - kFirstCharacter);
    if (index >= kFirstInitials.size())
        return false;
    const std::u16string_view further = kFurtherInitials[typed - u'a'];
    return static_cast<char16_t>(kFirstInitials[index]) == typed
        || std::binary_search(further.begin(), further.end(), character);
}

} // namespace

namespace TC {

bool isInByPy(const QString& text, const QString& filter)
{
    const QString shown = text.toLower();
    const QString typed = filter.toLower();
    const auto found = std::search(shown.cbegin(), shown.cend(), typed.cbegin(), typed.cend(),
                                   [](QChar a, QChar b) { return answersTo(a.unicode(), b.unicode()); });
    return typed.isEmpty() || found != shown.cend();
}

} // namespace TC
