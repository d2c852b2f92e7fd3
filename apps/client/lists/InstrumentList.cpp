// SPDX-License-Identifier: MIT
#include "apps/client/lists/InstrumentList.h"

#include "apps/base/FileNames.h"
#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/TC/Pinyin.h"
#include "host/utils/CSingletonT.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <filesystem>
#include <system_error>

namespace client {

namespace {

/// The CSV files of a folder in alphabetical order, whatever bytes their names are made of.
QStringList barsFilesIn(const QString& folder)
{
    namespace files = std::filesystem;
    QStringList paths;
    std::error_code error;
    for (files::directory_iterator entry(base::bytesOfName(folder).toStdString(), error), end;
         !error && entry != end; entry.increment(error)) {
        const QString path = base::nameFromBytes(QByteArray::fromStdString(entry->path().string()));
        std::error_code unknown;
        if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) && entry->is_regular_file(unknown))
            paths << path;
    }
    paths.sort();
    return paths;
}

} // namespace

InstrumentList::InstrumentList(QWidget* parent)
    : QWidget(parent)
    , m_filter(new QLineEdit(this))
    , m_list(new QListWidget(this))
{
    m_filter->setPlaceholderText(QStringLiteral("代码、名称或拼音首字母"));
    m_filter->setClearButtonEnabled(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_filter);
    layout->addWidget(m_list);
    connect(m_filter, &QLineEdit::textChanged, this, &InstrumentList::filter);
    connect(m_list, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { Q_EMIT sigOpen(item->data(Qt::UserRole).toString()); });
}

void InstrumentList::listFolder(const QString& folder)
{
    m_list->clear();
    const auto* stocks = utils::CSingletonT<TC::CStockManager>::instance();
    const QStringList paths = barsFilesIn(folder);
    for (const QString& path : paths) {
        const QString key = QFileInfo(path).baseName();
        const QString name = TC::getDetailQsName(stocks->getInstrumentDetail(key));
        auto* item = new QListWidgetItem(QStringLiteral("%1  %2").arg(base::printable(key), name), m_list);
        item->setData(Qt::UserRole, path);
    }
}

void InstrumentList::filter(const QString& text)
{
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem* item = m_list->item(row);
        item->setHidden(!item->text().contains(text, Qt::CaseInsensitive)
                        && !TC::isInByPy(item->text(), text));
    }
}

} // namespace client
