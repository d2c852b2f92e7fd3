// SPDX-License-Identifier: MIT
#include "host/WB/SaveFileDialog.h"

#include "host/embedded/TableSetup.h"

#include <QFileDialog>

#include <optional>

namespace {

/// Takes the dialog's place.
std::optional<QString>& answerToGive()
{
    static std::optional<QString> answer;
    return answer;
}

TC::embedded::SaveDialogRequest& lastRequest()
{
    static TC::embedded::SaveDialogRequest request;
    return request;
}

} // namespace

namespace WB {

QString getSaveFileName(QWidget* parent, const QString& title, const QString& folder, const QString& filter)
{
    lastRequest() = { title, folder, filter, QString() };
    const std::optional<QString>& given = answerToGive();
    QString answer = given ? *given : QFileDialog::getSaveFileName(parent, title, folder, filter);
    lastRequest().answer = answer;
    return answer;
}

} // namespace WB

namespace TC::embedded {

void setSaveDialogAnswer(const QString& path)
{
    answerToGive() = path;
}

void clearSaveDialogAnswer()
{
    answerToGive().reset();
    lastRequest() = {};
}

SaveDialogRequest lastSaveDialogRequest()
{
    return lastRequest();
}

} // namespace TC::embedded
