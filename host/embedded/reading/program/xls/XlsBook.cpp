// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xls/XlsSheet.h"

#include "host/utils/TextCodec.h"

namespace workbook {

namespace {

/// Bytes in a code page of Windows.
QString decoded(const QByteArray& bytes, int codePage)
{
    QByteArray name = "windows-" + QByteArray::number(codePage);
    if (codePage == 936)
        name = "GB18030";
    else if (codePage == 950)
        name = "Big5";
    else if (codePage == 932)
        name = "Shift_JIS";
    else if (codePage == 949)
        name = "EUC-KR";
    const auto made = utils::decoded(bytes, name.constData());
    return made ? made->text : QString::fromLatin1(bytes);
}

} // namespace

QString XlsBook::text(RecordReader& reader, bool hasLongLength) const
{
    if (isUnicode)
        return reader.text(hasLongLength);
    const int length = hasLongLength ? reader.word() : reader.byte();
    return decoded(reader.rest(length), codePage);
}

void XlsBook::addFormat(RecordReader& reader)
{
    const int id = reader.word();
    formats.insert(id, kindOfCode(text(reader, isUnicode)));
}

void XlsBook::addSharedTexts(RecordReader& reader, CellCollector& cells) const
{
    reader.skip(4); // uses of the texts
    for (quint32 left = reader.doubleWord(); left > 0 && !reader.atEnd() && !cells.isRefused(); --left)
        cells.addShared(reader.text(true));
    if (!reader.isWhole())
        cells.noteLoss();
}

DateKind XlsBook::kind(int style) const
{
    if (style < 0 || style >= static_cast<int>(formatOfStyle.size()))
        return DateKind::None;
    const int format = formatOfStyle[static_cast<std::size_t>(style)];
    const auto own = formats.constFind(format);
    return own == formats.constEnd() ? kindOfBuiltIn(format) : *own;
}

} // namespace workbook
