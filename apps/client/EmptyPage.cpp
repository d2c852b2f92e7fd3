// SPDX-License-Identifier: MIT
#include "apps/client/EmptyPage.h"

#include "apps/client/language/Language.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace client {

EmptyPage::EmptyPage(const std::function<Words()>& words, QWidget* parent)
    : QWidget(parent)
{
    auto* title = new QLabel(this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() > 0 ? large.pointSizeF() * 1.5 : 15);
    title->setFont(large);
    auto* text = new QLabel(this);
    text->setWordWrap(true);
    auto* open = new QPushButton(this);
    followLanguage(this, [title, text, open, words] {
        const Words said = words();
        title->setText(said.heading);
        text->setText(said.advice);
        open->setText(said.button);
    });
    connect(open, &QPushButton::clicked, this, &EmptyPage::sigOpen);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addStretch(2);
    for (QLabel* label : { title, text }) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label);
    }
    layout->addWidget(open, 0, Qt::AlignHCenter);
    layout->addStretch(3);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

} // namespace client
