// SPDX-License-Identifier: MIT
#include "apps/client/PlainTexts.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace client {

namespace {

/// Of this file, for the catalogue.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PlainTexts)
};

} // namespace

PlainTexts::PlainTexts()
{
    QApplication::instance()->installEventFilter(this);
}

/// Widgets are polished before they are first measured and shown.
bool PlainTexts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        auto* label = qobject_cast<QLabel*>(watched);
        if (label && label->textFormat() == Qt::AutoText)
            label->setTextFormat(Qt::PlainText);
    }
    return QObject::eventFilter(watched, event);
}

QString menuText(const QString& name)
{
    return QString(name).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

bool isConfirmed(QWidget* parent, const QString& question, const QString& yes)
{
    QMessageBox box(QMessageBox::Question, parent->windowTitle().remove(QStringLiteral("[*]")), question,
                    QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* agreed = box.addButton(yes, QMessageBox::AcceptRole);
    QPushButton* declined = box.addButton(Texts::tr("取消"), QMessageBox::RejectRole);
    box.setDefaultButton(declined);
    box.setEscapeButton(declined);
    box.exec();
    return box.clickedButton() == agreed;
}

} // namespace client
