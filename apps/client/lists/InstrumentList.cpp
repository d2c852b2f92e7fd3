// SPDX-License-Identifier: MIT
#include "apps/client/lists/InstrumentList.h"

#include "apps/base/FileNames.h"
#include "apps/client/language/Language.h"
#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/TC/Pinyin.h"
#include "host/utils/CSingletonT.h"

#include <QComboBox>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace client {

namespace {

enum EGroup { EGroup_All, EGroup_Favourites, EGroup_Recent };
constexpr int kMostRecent = 30;

/// The CSV files of a folder in alphabetical order, whatever bytes their names are made of.
QStringList barsFilesIn(const QString& folder)
{
    namespace files = std::filesystem;
    QStringList paths;
    std::error_code error;
    for (files::directory_iterator entry(base::pathOf(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        const QString path = base::nameOf(entry->path());
        std::error_code unknown;
        if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) && entry->is_regular_file(unknown))
            paths << path;
    }
    paths.sort();
    return paths;
}

} // namespace

bool ListedInstrument::isMeantBy(const QString& typed) const
{
    return text.contains(typed, Qt::CaseInsensitive) || TC::isInByPy(text, typed);
}

InstrumentList::InstrumentList(QWidget* parent)
    : QWidget(parent)
    , m_group(new QComboBox(this))
    , m_filter(new QLineEdit(this))
    , m_list(new QListWidget(this))
{
    m_filter->setClearButtonEnabled(true);
    setFocusProxy(m_filter);
    m_group->addItems({ QString(), QString(), QString() });
    followLanguage(this, [this] {
        m_filter->setPlaceholderText(tr("代码、名称、拼音"));
        m_filter->setAccessibleName(tr("品种过滤"));
        m_group->setAccessibleName(tr("品种分组"));
        m_list->setAccessibleName(tr("品种"));
        m_group->setToolTip(tr("右键点品种可加入自选"));
        m_group->setItemText(EGroup_All, tr("全部"));
        m_group->setItemText(EGroup_Favourites, tr("自选"));
        m_group->setItemText(EGroup_Recent, tr("最近"));
    });
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QWidget::customContextMenuRequested, this, &InstrumentList::showMenu);
    connect(m_group, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &InstrumentList::applyFilter);
    auto* top = new QHBoxLayout;
    top->addWidget(m_filter, 1);
    top->addWidget(m_group);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addLayout(top);
    layout->addWidget(m_list);
    m_filter->installEventFilter(this);
    m_list->installEventFilter(this);
    connect(m_filter, &QLineEdit::textChanged, this, &InstrumentList::applyFilter);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &InstrumentList::openCurrent);
}

void InstrumentList::showFile(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    const QString opened = QFileInfo(absolute).baseName();
    m_recent.removeAll(opened);
    m_recent.prepend(opened);
    m_recent = m_recent.mid(0, kMostRecent);
    list(QFileInfo(absolute).absolutePath());
    if (m_group->currentIndex() == EGroup_Recent)
        applyFilter();
    const auto found =
        std::find_if(m_instruments.begin(), m_instruments.end(),
                     [&](const ListedInstrument& instrument) { return instrument.path == absolute; });
    m_list->setCurrentRow(found == m_instruments.end() ? -1
                                                       : static_cast<int>(found - m_instruments.begin()));
}

void InstrumentList::list(const QString& folder)
{
    const QStringList paths = barsFilesIn(folder);
    const bool isSame = std::equal(
        paths.begin(), paths.end(), m_instruments.begin(), m_instruments.end(),
        [](const QString& path, const ListedInstrument& instrument) { return path == instrument.path; });
    if (isSame)
        return;
    m_instruments.clear();
    m_list->clear();
    const auto* stocks = utils::CSingletonT<TC::CStockManager>::instance();
    for (const QString& path : paths) {
        const QString key = QFileInfo(path).baseName();
        const QString name = TC::getDetailQsName(stocks->getInstrumentDetail(key));
        m_instruments.push_back(
            { path, QStringLiteral("%1  %2").arg(base::printable(key), name), key, name });
        m_list->addItem(m_instruments.back().text);
    }
    applyFilter();
    Q_EMIT sigListed();
}

void InstrumentList::setMarks(const QStringList& favourites, const QStringList& recent)
{
    m_favourites = favourites;
    m_recent = recent.mid(0, kMostRecent);
    applyFilter();
}

void InstrumentList::setFavourite(const QString& key, bool on)
{
    m_favourites.removeAll(key);
    if (on)
        m_favourites << key;
    applyFilter();
}

bool InstrumentList::isShown(const ListedInstrument& instrument) const
{
    const int group = m_group->currentIndex();
    return instrument.isMeantBy(m_filter->text())
        && (group != EGroup_Favourites || m_favourites.contains(instrument.key))
        && (group != EGroup_Recent || m_recent.contains(instrument.key));
}

void InstrumentList::showMenu(const QPoint& place)
{
    const int row = m_list->row(m_list->itemAt(place));
    if (row < 0)
        return;
    const QString key = m_instruments[static_cast<std::size_t>(row)].key;
    const bool isFavourite = m_favourites.contains(key);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(isFavourite ? tr("移出自选") : tr("加入自选"), this,
                    [this, key, isFavourite] { setFavourite(key, !isFavourite); });
    menu->popup(m_list->viewport()->mapToGlobal(place));
}

QString InstrumentList::filter() const
{
    return m_filter->text();
}

void InstrumentList::setFilter(const QString& text)
{
    m_filter->setText(text);
}

void InstrumentList::applyFilter()
{
    for (int row = 0; row < m_list->count(); ++row)
        m_list->item(row)->setHidden(!isShown(m_instruments[static_cast<std::size_t>(row)]));
}

int InstrumentList::rowBehind(int places) const
{
    const int direction = places < 0 ? -1 : 1;
    int found = -1;
    // Without a current row the first step leads to the first one, or the last one.
    int row = m_list->currentRow() < 0 && direction < 0 ? m_list->count() : m_list->currentRow();
    for (int left = std::abs(places); left > 0; --left) {
        do
            row += direction;
        while (row >= 0 && row < m_list->count() && m_list->item(row)->isHidden());
        if (row < 0 || row >= m_list->count())
            break;
        found = row;
    }
    return found;
}

void InstrumentList::step(int places)
{
    const int row = rowBehind(places);
    if (row < 0)
        return;
    m_list->setCurrentRow(row);
    openCurrent();
}

void InstrumentList::openCurrent()
{
    int row = m_list->currentRow();
    if (row < 0 || m_list->item(row)->isHidden()) {
        m_list->setCurrentRow(-1);
        row = rowBehind(1); // the first one that the filter leaves
        m_list->setCurrentRow(row);
    }
    if (row >= 0)
        Q_EMIT sigOpen(QString(m_instruments[static_cast<std::size_t>(row)].path)); // the list may change
}

/// Keys mean the same in the filter and in the list.
bool InstrumentList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto move = [this](int places) {
        if (const int row = rowBehind(places); row >= 0)
            m_list->setCurrentRow(row);
    };
    constexpr int page = 10;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: openCurrent(); return true;
    case Qt::Key_Up: move(-1); return true;
    case Qt::Key_Down: move(1); return true;
    case Qt::Key_PageUp: move(-page); return true;
    case Qt::Key_PageDown: move(page); return true;
    default: return QWidget::eventFilter(watched, event);
    }
}

} // namespace client
