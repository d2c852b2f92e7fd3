// SPDX-License-Identifier: MIT
#include "host/WB/SaveFileDialog.h"

#include "host/embedded/TableSetup.h"

#include <QFileDialog>

#include <optional>

namespace {

std::optional<QString> s_answer;
TC::embedded::SaveDialogRequest s_request;

} // namespace

namespace WB {

QString getSaveFileName(QWidget* parent, const QString& title, const QString& folder, const QString& filter)
{
    s_request = { title, folder, filter, QString() };
    QString answer = s_answer ? *s_answer : QFileDialog::getSaveFileName(parent, title, folder, filter);
    s_request.answer = answer;
    return answer;
}

} // namespace WB

namespace TC::embedded {

void setSaveDialogAnswer(const QString& path)
{
    s_answer = path;
}

void clearSaveDialogAnswer()
{
    s_answer.reset();
    s_request = {};
}

SaveDialogRequest lastSaveDialogRequest()
{
    return s_request;
}

} // namespace TC::embedded
