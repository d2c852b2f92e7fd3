// SPDX-License-Identifier: MIT
#include "apps/client/editor/FormulaStore.h"

#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"
#include "engine/Formulas.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonValue>
#include <QLockFile>

namespace client {

namespace {

// Without "base::" in front of a function, which Qt 6's lupdate takes for the context of its texts.
using base::Failure;

constexpr int kLongestWaitMs = 2000; // for another client's change

const QLatin1String kFormulas("formulas");
const QLatin1String kName("name");
const QLatin1String kDisplayName("displayName");
const QLatin1String kBase("base");
const QLatin1String kSource("source");
const QLatin1String kParameters("parameters");
const QLatin1String kDraft("draft");

QString nameOf(const QJsonValue& entry)
{
    return entry.toObject().value(kName).toString().trimmed();
}

/// Place of the entry of a name; -1 when there is none.
int placeOf(const QJsonArray& entries, const QString& name)
{
    for (int place = 0; !name.isEmpty() && place < entries.size(); ++place) {
        if (nameOf(entries.at(place)) == name)
            return place;
    }
    return -1;
}

/// Whether a built-in formula or an entry, the one at a place left aside, is called so.
bool isTaken(const QJsonArray& entries, const QString& name, int aside)
{
    if (engine::findBuiltIn(name.toStdString()))
        return true;
    for (int place = 0; place < entries.size(); ++place) {
        const QString shown = entries.at(place).toObject().value(kDisplayName).toString().trimmed();
        if (place != aside && (nameOf(entries.at(place)) == name || shown == name))
            return true;
    }
    return false;
}

QString freeNameIn(const QJsonArray& entries, const QString& word)
{
    QString name = word;
    for (int number = 2; isTaken(entries, name, -1); ++number)
        name = word + QString::number(number);
    return name;
}

void setOrRemove(QJsonObject& entry, QLatin1String key, const QString& text)
{
    if (text.isEmpty())
        entry.remove(key);
    else
        entry.insert(key, text);
}

/// The entry with what the formula says; its other keys stay.
QJsonObject withFormula(QJsonObject entry, const OwnFormula& formula)
{
    entry.insert(kName, formula.name);
    setOrRemove(entry, kDisplayName, formula.displayName);
    setOrRemove(entry, kBase, formula.base);
    setOrRemove(entry, kSource, formula.source);
    QJsonArray parameters;
    for (double parameter : formula.parameters)
        parameters << parameter;
    if (parameters.isEmpty())
        entry.remove(kParameters);
    else
        entry.insert(kParameters, parameters);
    if (formula.isDraft)
        entry.insert(kDraft, true);
    else
        entry.remove(kDraft);
    return entry;
}

OwnFormula formulaOf(const QJsonObject& entry)
{
    OwnFormula formula { nameOf(entry),
                         entry.value(kDisplayName).toString().trimmed(),
                         entry.value(kBase).toString(),
                         entry.value(kSource).toString(),
                         {},
                         entry.value(kDraft).toBool() };
    const QJsonArray parameters = entry.value(kParameters).toArray();
    for (const QJsonValue& parameter : parameters)
        formula.parameters << parameter.toDouble();
    return formula;
}

Failure unknownFormula(const QString& name)
{
    return { FormulaStore::tr("公式文件里没有“%1”。").arg(name) };
}

} // namespace

FormulaStore::FormulaStore(QString path)
    : m_path(std::move(path))
{
}

base::Result<std::vector<OwnFormula>> FormulaStore::read() const
{
    base::Result<Content> content = load();
    if (!content.isGood())
        return content.failure();
    std::vector<OwnFormula> formulas;
    for (const QJsonValue& entry : qAsConst(content->entries)) {
        if (!nameOf(entry).isEmpty())
            formulas.push_back(formulaOf(entry.toObject()));
    }
    return formulas;
}

base::Result<void> FormulaStore::save(const OwnFormula& formula, const QString& replaced)
{
    return change([&](QJsonArray& entries) -> base::Result<void> {
        if (formula.name.trimmed().isEmpty())
            return base::Failure { tr("公式需要一个名称。") };
        const int place = placeOf(entries, replaced);
        for (const QString& name : { formula.name, formula.shownName() }) {
            if (isTaken(entries, name, place))
                return base::Failure { tr("名称“%1”已被占用。").arg(name) };
        }
        if (place >= 0)
            entries.replace(place, withFormula(entries.at(place).toObject(), formula));
        else
            entries.append(withFormula(QJsonObject(), formula));
        return {};
    });
}

base::Result<QString> FormulaStore::duplicate(const QString& name)
{
    QString copy;
    const base::Result<void> done = change([&](QJsonArray& entries) -> base::Result<void> {
        const int place = placeOf(entries, name);
        if (place < 0)
            return unknownFormula(name);
        QJsonObject entry = entries.at(place).toObject();
        copy = freeNameIn(entries, name);
        entry.insert(kName, copy);
        if (entry.contains(kDisplayName))
            entry.insert(kDisplayName, freeNameIn(entries, formulaOf(entry).displayName));
        entries.insert(place + 1, entry);
        return {};
    });
    if (!done.isGood())
        return done.failure();
    return copy;
}

base::Result<void> FormulaStore::remove(const QString& name)
{
    return change([&](QJsonArray& entries) -> base::Result<void> {
        const int place = placeOf(entries, name);
        if (place < 0)
            return unknownFormula(name);
        entries.removeAt(place);
        return {};
    });
}

QString FormulaStore::freeName(const QString& word) const
{
    base::Result<Content> content = load();
    // Without a readable file there are only the built-in names to avoid.
    return freeNameIn(content.isGood() ? content->entries : QJsonArray(), word);
}

base::Result<FormulaStore::Content> FormulaStore::load() const
{
    QFile file(m_path);
    if (!file.exists())
        return Content();
    if (!file.open(QIODevice::ReadOnly))
        return base::Failure { tr("公式文件打不开：%1").arg(file.errorString()) };
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    const QJsonValue list = document.object().value(kFormulas);
    if (error.error != QJsonParseError::NoError || !document.isObject()
        || !(list.isArray() || list.isUndefined()))
        return base::Failure { tr("公式文件已损坏，未作改动。可在“工具”菜单里恢复公式。") };
    return Content { document.object(), list.toArray() };
}

base::Result<void> FormulaStore::change(const Change& change)
{
    QLockFile lock(m_path + QStringLiteral(".lock")); // between the reading and the writing of all clients
    lock.setStaleLockTime(kLongestWaitMs / 2); // what a killed client left; one that lives keeps its lock
    if (!lock.tryLock(kLongestWaitMs) && lock.error() == QLockFile::LockFailedError)
        return base::Failure { tr("另一个客户端正在改公式文件，未作改动。") };
    base::Result<Content> content = load();
    if (!content.isGood())
        return content.failure();
    base::Result<void> changed = change(content->entries);
    if (!changed.isGood())
        return changed;
    base::Result<void> ready = m_beforeChange ? m_beforeChange() : base::Result<void>();
    if (!ready.isGood())
        return ready;
    content->root.insert(kFormulas, content->entries);
    if (const auto fault = base::writeWholeFile(m_path, QJsonDocument(content->root).toJson()))
        return base::Failure { tr("公式文件写不了：%1").arg(ownWords(*fault)) };
    return {};
}

} // namespace client
