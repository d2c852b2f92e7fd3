// SPDX-License-Identifier: MIT
#include "apps/client/chart/DateJump.h"

#include "apps/chart/TimeMarks.h"
#include "apps/client/chart/ChartState.h"
#include "host/utils/LocalZone.h"

#include <QDate>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTime>
#include <QVBoxLayout>

#include <algorithm>

namespace client {

namespace {

std::optional<std::int64_t> msOf(const QDate& date, const QTime& time = QTime(0, 0))
{
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    const auto seconds = utils::secondsFromLocal({ date.year(), date.month(), date.day() }, time.hour(),
                                                 time.minute(), time.second());
    return seconds ? std::optional(*seconds * 1000) : std::nullopt;
}

std::optional<TypedDate> between(const std::optional<std::int64_t>& from,
                                 const std::optional<std::int64_t>& until)
{
    return from && until ? std::optional(TypedDate { *from, *until }) : std::nullopt;
}

} // namespace

std::optional<TypedDate> readDate(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^(\\d{4})(?:[-/.]?(\\d{2})|[-/.](\\d))?(?:[-/.]?(\\d{2})|[-/.](\\d))?(?:[ "
                       "T]+(\\d{1,2}):(\\d{2}))?$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const auto number = [&](int part) { return match.captured(part).toInt(); };
    const int year = number(1), month = number(2) + number(3), day = number(4) + number(5);
    const bool hasMonth = !match.captured(2).isEmpty() || !match.captured(3).isEmpty();
    const bool hasDay = !match.captured(4).isEmpty() || !match.captured(5).isEmpty();
    if (!match.captured(6).isEmpty()) {
        constexpr std::int64_t minute = 60'000;
        const auto from = hasDay ? msOf(QDate(year, month, day), QTime(number(6), number(7))) : std::nullopt;
        return from ? std::optional(TypedDate { *from, *from + minute }) : std::nullopt;
    }
    const QDate first(year, hasMonth ? month : 1, hasDay ? day : 1);
    if (!first.isValid())
        return std::nullopt;
    return between(msOf(first),
                   msOf(hasDay         ? first.addDays(1)
                            : hasMonth ? first.addMonths(1)
                                       : first.addYears(1)));
}

std::optional<int> barAtDate(const std::vector<std::int64_t>& times, const TypedDate& date)
{
    if (date.untilMs <= times.front() || date.fromMs > times.back())
        return std::nullopt;
    const auto next = std::lower_bound(times.begin(), times.end(), date.fromMs);
    const bool isNamed = *next < date.untilMs || next == times.begin();
    const bool isNearest = isNamed || *next - date.fromMs < date.fromMs - *(next - 1);
    return static_cast<int>(next - times.begin()) - (isNearest ? 0 : 1);
}

DateJump::DateJump(ChartState* state, QWidget* parent)
    : QDialog(parent)
    , m_state(state)
    , m_date(new QLineEdit(this))
    , m_fault(new QLabel(this))
{
    setWindowTitle(tr("跳转到日期"));
    m_date->setPlaceholderText(tr("2024-01-15、20240115 或 2024-01"));
    m_date->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    m_fault->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("跳转"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("取消"), QDialogButtonBox::RejectRole);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_date);
    layout->addWidget(m_fault);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &DateJump::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_date, &QLineEdit::textEdited, m_fault, &QLabel::clear);
}

void DateJump::accept()
{
    const QString fault = jump();
    m_fault->setText(fault);
    if (fault.isEmpty())
        QDialog::accept();
}

QString DateJump::jump()
{
    const std::optional<TypedDate> date = readDate(m_date->text());
    if (!date)
        return tr("不是日期：请输入如 2024-01-15、20240115 或 2024-01");
    if (m_state->barTotal() == 0)
        return tr("还没有打开品种");
    const std::vector<std::int64_t>& times = m_state->bars()->timeMs;
    const std::optional<int> bar = barAtDate(times, *date);
    if (!bar)
        return tr("超出数据范围：%1 至 %2")
            .arg(chart::timeText(times, 0), chart::timeText(times, m_state->barTotal() - 1));
    m_state->centre(*bar);
    m_state->setCrosshairBar(*bar);
    return QString();
}

} // namespace client
