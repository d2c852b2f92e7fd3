// SPDX-License-Identifier: MIT
#include "apps/client/lists/InstrumentSearch.h"

#include "apps/client/language/Language.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace client {

namespace {

const QSize kSize(260, 240);    // pixels
constexpr int kMostFound = 100; // rows

/// Smaller is better: a code begins with what is typed, behind the two letters of its market or with them.
int rankOf(const ListedInstrument& instrument, const QString& typed)
{
    constexpr int marketLength = 2;
    if (instrument.text.startsWith(typed, Qt::CaseInsensitive))
        return 0;
    return instrument.text.indexOf(typed, marketLength, Qt::CaseInsensitive) == marketLength ? 1 : 2;
}

} // namespace

InstrumentSearch::InstrumentSearch(QWidget* over)
    : QFrame(over)
    , m_over(over)
    , m_field(new QLineEdit(this))
    , m_found(new QListWidget(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    m_found->setFocusPolicy(Qt::NoFocus);
    m_field->installEventFilter(this);
    followLanguage(this, [this] {
        m_field->setAccessibleName(tr("搜索品种"));
        m_field->setPlaceholderText(tr("代码、名称、拼音"));
        m_found->setAccessibleName(tr("找到的品种"));
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_field);
    layout->addWidget(m_found);
    connect(m_field, &QLineEdit::textChanged, this, &InstrumentSearch::search);
    connect(m_found, &QListWidget::itemClicked, this, &InstrumentSearch::openChosen);
    hide();
}

void InstrumentSearch::open(const std::vector<ListedInstrument>& instruments, const QString& typed)
{
    m_instruments = instruments;
    const QRect place(m_over->rect().bottomRight() - QPoint(kSize.width(), kSize.height()), kSize);
    setGeometry(place.intersected(m_over->rect()));
    m_field->setText(typed);
    search(typed);
    show();
    raise();
    m_field->setFocus();
    m_field->end(false);
}

void InstrumentSearch::search(const QString& typed)
{
    std::vector<std::pair<int, const ListedInstrument*>> found;
    for (const ListedInstrument& instrument : m_instruments) {
        if (!typed.isEmpty() && instrument.isMeantBy(typed))
            found.emplace_back(rankOf(instrument, typed), &instrument);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    found.resize(std::min<std::size_t>(found.size(), kMostFound));
    m_found->clear();
    for (const auto& [rank, instrument] : found) {
        auto* item = new QListWidgetItem(instrument->text, m_found);
        item->setData(Qt::UserRole, instrument->path);
    }
    m_found->setCurrentRow(0);
}

void InstrumentSearch::finish()
{
    hide();
    m_over->setFocus();
}

void InstrumentSearch::openChosen()
{
    const QListWidgetItem* item = m_found->currentItem();
    const QString path = item ? item->data(Qt::UserRole).toString() : QString();
    finish();
    if (!path.isEmpty())
        Q_EMIT sigOpen(path);
}

bool InstrumentSearch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        hide();
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    const auto choose = [this](int row) {
        m_found->setCurrentRow(std::clamp(row, 0, std::max(0, m_found->count() - 1)));
    };
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape: finish(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: openChosen(); return true;
    case Qt::Key_Up: choose(m_found->currentRow() - 1); return true;
    case Qt::Key_Down: choose(m_found->currentRow() + 1); return true;
    default: return QFrame::eventFilter(watched, event);
    }
}

} // namespace client
