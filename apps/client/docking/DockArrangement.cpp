// SPDX-License-Identifier: MIT
#include "apps/client/docking/DockArrangement.h"

#include "apps/base/WholeFile.h"
#include "apps/client/docking/ArrangementFile.h"
#include "apps/client/docking/DockLook.h"
#include "host/TC/Folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QMainWindow>
#include <QTimer>
#include <QVBoxLayout>

namespace client {

namespace {

// Without "base::" in front of a function, which Qt 6's lupdate takes for the context of its texts.
using base::Failure;

/// Counts the changes of what a saved arrangement means.
constexpr int kStateVersion = 1;

/// What a dock holds for good, since the docking system shows no dock without content: an empty berth for
/// the panel.
QWidget* makeBerth()
{
    auto* made = new QWidget;
    auto* layout = new QVBoxLayout(made);
    layout->setContentsMargins(0, 0, 0, 0);
    return made;
}

void berth(ads::CDockWidget* dock, TC::IIndexDockableWidget* panel)
{
    dock->widget()->layout()->addWidget(panel);
    dock->setFeature(ads::CDockWidget::DockWidgetClosable, panel->isCloseEnable());
    panel->show();
}

TC::IIndexDockableWidget* panelIn(const ads::CDockWidget* dock)
{
    return dock->widget()->findChild<TC::IIndexDockableWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

/// Holds the checksum of a state while it is being applied.
QString markPath()
{
    return DockArrangement::filePath() + QStringLiteral(".loading");
}

/// Where a damaged file is kept; what was kept there before goes.
QString freshAside(const QString& path)
{
    QString aside = path + QStringLiteral(".damaged");
    QFile::remove(aside);
    return aside;
}

Failure otherClient()
{
    return { DockArrangement::tr("另一个客户端正在运行，布局未保存。") };
}

} // namespace

DockArrangement::DockArrangement(QMainWindow* window, PanelPool& pool)
    : QObject(window)
    , m_pool(pool)
    , m_manager(makeDockManager(window))
{
}

DockArrangement::~DockArrangement() = default;

ads::CDockWidget* DockArrangement::addPanel(const QString& panelId, ads::DockWidgetArea area,
                                            ads::CDockWidget* beside)
{
    if (dock(panelId))
        return nullptr;
    TC::IIndexDockableWidget* panel = m_pool.lend(panelId);
    if (!panel)
        return nullptr;

    auto* dock = new ads::CDockWidget(panel->title());
    dock->setObjectName(panelId); // before the manager learns of it: arrangements know docks by name
    dock->setWidget(makeBerth(), ads::CDockWidget::ForceNoScrollArea);
    if (panel->isSimpleHeaderTitle())
        simplifyHeader(dock);
    berth(dock, panel);
    m_manager->addDockWidget(area, dock, beside ? beside->dockAreaWidget() : nullptr);
    connect(dock, &ads::CDockWidget::viewToggled, this,
            [this, dock](bool open) { open ? borrow(dock) : giveBack(dock); });
    return dock;
}

void DockArrangement::removePanel(const QString& panelId)
{
    ads::CDockWidget* removed = dock(panelId);
    if (!removed)
        return;
    disconnect(removed, nullptr, this, nullptr);
    if (TC::IIndexDockableWidget* panel = panelIn(removed)) {
        panel->setParent(nullptr); // it outlives the dock
        m_pool.takeBack(panel);
    }
    m_manager->removeDockWidget(removed);
    m_removed.emplace_back(removed);
    removed->deleteLater();
}

ads::CDockWidget* DockArrangement::dock(const QString& panelId) const
{
    return m_manager ? m_manager->findDockWidget(panelId) : nullptr;
}

TC::IIndexDockableWidget* DockArrangement::panel(const QString& panelId) const
{
    const ads::CDockWidget* holder = dock(panelId);
    return holder ? panelIn(holder) : nullptr;
}

void DockArrangement::rememberDefault()
{
    m_default = m_manager->saveState(kStateVersion);
}

void DockArrangement::applyDefault()
{
    if (!m_default.isEmpty())
        applyState(m_default);
}

QString DockArrangement::filePath()
{
    return QDir(TC::getConfigDir()).filePath(QStringLiteral("dock-arrangement.json"));
}

base::Result<void> DockArrangement::save()
{
    if (!m_mayWrite)
        return {};
    QFile::remove(markPath()); // whatever was applied is survived
    const QByteArray place = m_manager->window()->saveGeometry();
    m_saved = m_manager->saveState(kStateVersion) + place;
    return ArrangementFile { m_manager->saveState(kStateVersion), m_named, place }.write(filePath());
}

void DockArrangement::saveChange()
{
    if (m_saved != m_manager->saveState(kStateVersion) + m_manager->window()->saveGeometry())
        static_cast<void>(save());
}

base::Result<void> DockArrangement::restore(bool mayWrite)
{
    m_mayWrite = mayWrite;
    base::Result<ArrangementFile> file = readFile();
    if (!file.isGood())
        return applyDefaultBecause(file.reason());
    const bool hasEndedProgram = leaveOutFatal(*file);
    m_named = file->named;
    if (!file->window.isEmpty())
        m_manager->window()->restoreGeometry(file->window); // first: the docks share out its size
    if (hasEndedProgram)
        return applyDefaultBecause(tr("上次载入面板布局时程序中断"));
    if (file->last.isEmpty())
        applyDefault();
    else if (!applyWatched(file->last))
        return applyDefaultBecause(tr("上次的面板布局无法恢复"));
    return {};
}

base::Failure DockArrangement::applyDefaultBecause(const QString& reason)
{
    applyDefault();
    return { reason + tr("，已使用默认布局。") };
}

base::Result<void> DockArrangement::store(const QString& name)
{
    if (!m_mayWrite)
        return otherClient();
    m_named.insert(name, m_manager->saveState(kStateVersion));
    return save();
}

base::Result<void> DockArrangement::apply(const QString& name)
{
    const auto stored = m_named.constFind(name);
    if (stored == m_named.constEnd())
        return base::Failure { tr("没有名为“%1”的布局。").arg(name) };
    if (!applyWatched(*stored))
        return base::Failure { tr("布局“%1”已损坏，布局未改变。").arg(name) };
    return {};
}

base::Result<void> DockArrangement::forget(const QString& name)
{
    if (!m_mayWrite)
        return otherClient();
    m_named.remove(name);
    return save();
}

/// An opened dock without a panel gets one; one that was closed a moment ago keeps its own.
void DockArrangement::borrow(ads::CDockWidget* dock)
{
    if (TC::IIndexDockableWidget* own = panelIn(dock))
        m_pool.keep(own);
    else if (TC::IIndexDockableWidget* lent = m_pool.lend(dock->objectName()))
        berth(dock, lent);
}

void DockArrangement::giveBack(ads::CDockWidget* dock)
{
    if (TC::IIndexDockableWidget* panel = panelIn(dock))
        m_pool.takeBack(panel);
}

/// The docking system must not restore while docks or floating windows wait for their deletion.
void DockArrangement::finishDeletions()
{
    for (const QPointer<ads::CDockWidget>& removed : m_removed) {
        if (removed)
            QCoreApplication::sendPostedEvents(removed, QEvent::DeferredDelete);
    }
    m_removed.clear();
    const QList<QWidget*> floating = floatingWindows(m_manager);
    for (QWidget* window : floating)
        QCoreApplication::sendPostedEvents(window, QEvent::DeferredDelete);
}

bool DockArrangement::applyState(const QByteArray& state)
{
    finishDeletions();
    return m_manager->restoreState(state, kStateVersion);
}

base::Result<ArrangementFile> DockArrangement::readFile()
{
    const QString path = filePath();
    if (!QFile::exists(path))
        return ArrangementFile();
    base::Result<ArrangementFile> file = ArrangementFile::read(path);
    if (!file.isGood() && m_mayWrite)
        QFile::rename(path, freshAside(path));
    return file;
}

/// Takes the state out of the content during whose loading the program ended last time.
/// @return whether that was the last arrangement.
bool DockArrangement::leaveOutFatal(ArrangementFile& file)
{
    QFile mark(markPath());
    if (!m_mayWrite || !mark.open(QIODevice::ReadOnly))
        return false;
    const QString fatal = QString::fromLatin1(mark.readAll());
    mark.close();
    mark.remove();
    bool isKnown = false;
    for (auto entry = file.named.begin(); entry != file.named.end();) {
        const bool isFatal = checksumOf(entry.value()) == fatal;
        isKnown = isKnown || isFatal;
        entry = isFatal ? file.named.erase(entry) : std::next(entry);
    }
    const bool isLast = checksumOf(file.last) == fatal;
    if (isLast)
        file.last.clear();
    if (isLast || isKnown)
        QFile::copy(filePath(), freshAside(filePath()));
    return isLast;
}

bool DockArrangement::applyWatched(const QByteArray& state)
{
    // Without a mark the arrangement is applied all the same.
    if (m_mayWrite && !base::writeWholeFile(markPath(), checksumOf(state).toLatin1()))
        QTimer::singleShot(0, this, [] { QFile::remove(markPath()); }); // once the docks stand
    return applyState(state);
}

} // namespace client
