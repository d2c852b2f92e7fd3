// SPDX-License-Identifier: MIT
#include "apps/client/live/ReplayBar.h"

#include "apps/client/language/Language.h"
#include "apps/client/live/ReplayClock.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace client {

ReplayBar::ReplayBar(ReplayClock* clock, QWidget* parent)
    : QWidget(parent)
    , m_clock(clock)
    , m_run(new QPushButton(this))
    , m_step(new QPushButton(this))
    , m_speed(new QComboBox(this))
    , m_state(new QLabel(this))
{
    for (int speed : { 1, 2, 5, 10, 20, 50, 100, 200, 500, ReplayClock::kFastest })
        m_speed->addItem(QString(), speed);
    auto* end = worded(new QPushButton(this), [] { return tr("结束回放"); });
    followLanguage(this, [this] {
        m_step->setText(tr("单步"));
        m_speed->setToolTip(tr("回放速度"));
        m_speed->setAccessibleName(tr("回放速度"));
        for (int item = 0; item < m_speed->count(); ++item)
            m_speed->setItemText(item, tr("%1 倍").arg(m_speed->itemData(item).toInt()));
        followClock();
    });
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    for (QWidget* widget : { static_cast<QWidget*>(m_run), static_cast<QWidget*>(m_step),
                             static_cast<QWidget*>(m_speed), static_cast<QWidget*>(m_state) })
        layout->addWidget(widget, widget == m_state ? 1 : 0);
    layout->addWidget(end);
    connect(m_run, &QPushButton::clicked, this,
            [this] { m_clock->isRunning() ? m_clock->pause() : m_clock->start(); });
    connect(m_step, &QPushButton::clicked, m_clock, &ReplayClock::step);
    connect(end, &QPushButton::clicked, this, &ReplayBar::sigEndRequested);
    connect(m_speed, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { m_clock->setSpeed(m_speed->currentData().toInt()); });
    connect(m_clock, &ReplayClock::sigRunningChanged, this, &ReplayBar::followClock);
    connect(m_clock, &ReplayClock::sigAdvanced, this, &ReplayBar::followClock);
}

void ReplayBar::showState(const QString& what)
{
    m_state->setText(what);
    followClock();
}

void ReplayBar::followClock()
{
    const bool isOver = m_clock->done() == m_clock->total();
    m_run->setText(m_clock->isRunning() ? tr("暂停") : tr("开始"));
    m_run->setEnabled(!isOver);
    m_step->setEnabled(!isOver);
}

} // namespace client
