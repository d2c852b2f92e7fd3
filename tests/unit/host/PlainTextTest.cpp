// SPDX-License-Identifier: MIT
#include "host/WB/PlainText.h"

#include <QLabel>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace {

/// What a tool tip shows of a text: rich text when it looks like it, as QToolTip and QLabel decide.
QString shown(const QString& text)
{
    QTextDocument document;
    if (!Qt::mightBeRichText(text))
        return text;
    document.setHtml(text);
    return document.toPlainText();
}

TEST(PlainText, ToolTipsShowMarkupAsItIsWritten)
{
    for (const char* text :
         { "", "MA", "a < b", "&amp;", "<img src=\"/etc/hostname\">", "<b>bold</b> & <i>more", "<!-- x -->y",
           "a &lt;b&gt;", "<p>two\nlines  and blanks</p>", "<?xml?><qt>", "名<br/>字" })
        EXPECT_EQ(shown(WB::plainToolTip(QString::fromUtf8(text))).toStdString(), text) << text;
}

TEST(PlainText, ToolTipsWithoutMarkupStayAsTheyAre)
{
    EXPECT_EQ(WB::plainToolTip(QStringLiteral("a & b < c")), QStringLiteral("a & b < c"));
}

TEST(PlainText, LabelsKeepTheirAmpersands)
{
    EXPECT_EQ(WB::plainLabel(QStringLiteral("A&B && C")), QStringLiteral("A&&B &&&& C"));
}

} // namespace
