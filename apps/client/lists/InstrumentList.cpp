#include "apps/client/lists/InstrumentList.h"

#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/TC/Pinyin.h"
#include "host/utils/CSingletonT.h"

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace client {

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
    const QFileInfoList files =
        QDir(folder).entryInfoList({ QStringLiteral("*.csv") }, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        const QString name = TC::getDetailQsName(stocks->getInstrumentDetail(file.baseName()));
        auto* item = new QListWidgetItem(QStringLiteral("%1  %2").arg(file.baseName(), name), m_list);
        item->setData(Qt::UserRole, file.absoluteFilePath());
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
