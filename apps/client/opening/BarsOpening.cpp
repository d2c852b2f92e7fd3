// SPDX-License-Identifier: MIT
#include "apps/client/opening/BarsOpening.h"

#include "apps/base/FileNames.h"
#include "apps/client/language/Language.h"
#include "engine/files/BarFile.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <memory>

namespace client {

namespace {

constexpr int kThousand = 1000;
constexpr int kBarWidth = 160; // pixels

BarsOpening::Bars readBars(const QString& path, const engine::ReadingProgress& progress)
{
    std::string failure;
    std::optional<engine::BarSeries> bars =
        engine::readBars(base::bytesOfName(path).toStdString(), failure, progress);
    if (bars)
        return std::move(*bars);
    return base::Failure { base::nameFromBytes(QByteArray::fromStdString(failure)) };
}

} // namespace

BarsOpening::BarsOpening(QWidget* parent)
    : QWidget(parent)
    , m_bar(new QProgressBar)
{
    auto* cancel = worded(new QPushButton, [] { return tr("取消"); });
    m_bar->setRange(0, kThousand);
    m_bar->setFixedWidth(kBarWidth);
    m_bar->setTextVisible(false);
    followLanguage(m_bar, [this] { m_bar->setAccessibleName(tr("正在读取")); });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(worded(new QLabel, [] { return tr("正在读取"); }));
    row->addWidget(m_bar);
    row->addWidget(cancel);
    connect(cancel, &QPushButton::clicked, this, [this] {
        forget();
        Q_EMIT sigCancelled();
    });
    hide();
}

void BarsOpening::start(const QString& path, Taker taker)
{
    m_bar->setValue(0);
    show();
    m_job.start([this, path,
                 taker = std::move(taker)](const std::atomic<bool>& cancelled) -> base::LatestJob::Answer {
        int shown = 0;
        auto bars = std::make_shared<Bars>(readBars(path, [&](double share) {
            const int thousandths = static_cast<int>(share * kThousand);
            if (thousandths > shown) {
                shown = thousandths;
                QMetaObject::invokeMethod(
                    m_bar, [bar = m_bar, thousandths] { bar->setValue(thousandths); }, Qt::QueuedConnection);
            }
            return !cancelled;
        }));
        return [this, bars, taker] {
            hide();
            taker(std::move(*bars));
        };
    });
}

void BarsOpening::forget()
{
    m_job.forget();
    hide();
}

} // namespace client
