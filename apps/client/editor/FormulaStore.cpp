#include "apps/client/editor/FormulaStore.h"

#include "engine/Formulas.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonValue>
#include <QSaveFile>

namespace client {

namespace {

const QString kFormulas = QStringLiteral("formulas");
const QString kName = QStringLiteral("name");
const QString kDisplayName = QStringLiteral("displayName");
const QString kBase = QStringLiteral("base");
const QString kSource = QStringLiteral("source");
const QString kParameters = QStringLiteral("parameters");

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

void setOrRemove(QJsonObject& entry, const QString& key, const QString& text)
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
    return entry;
}

OwnFormula formulaOf(const QJsonObject& entry)
{
    OwnFormula formula { nameOf(entry),
                         entry.value(kDisplayName).toString().trimmed(),
                         entry.value(kBase).toString(),
                         entry.value(kSource).toString(),
                         {} };
    const QJsonArray parameters = entry.value(kParameters).toArray();
    for (const QJsonValue& parameter : parameters)
        formula.parameters << parameter.toDouble();
    return formula;
}

QString unknownFormula(const QString& name)
{
    return QStringLiteral("公式文件里没有“%1”。").arg(name);
}

} // namespace

FormulaStore::FormulaStore(QString path)
    : m_path(std::move(path))
{
}

QString FormulaStore::read(std::vector<OwnFormula>& formulas) const
{
    Content content;
    const QString failure = load(content);
    if (!failure.isEmpty())
        return failure;
    formulas.clear();
    for (const QJsonValue& entry : qAsConst(content.entries)) {
        if (!nameOf(entry).isEmpty())
            formulas.push_back(formulaOf(entry.toObject()));
    }
    return QString();
}

QString FormulaStore::save(const OwnFormula& formula, const QString& replaced)
{
    Content content;
    const QString failure = load(content);
    if (!failure.isEmpty())
        return failure;
    if (formula.name.trimmed().isEmpty())
        return QStringLiteral("公式需要一个名称。");
    const int place = placeOf(content.entries, replaced);
    for (const QString& name : { formula.name, formula.shownName() }) {
        if (isTaken(content.entries, name, place))
            return QStringLiteral("名称“%1”已被占用。").arg(name);
    }
    if (place >= 0)
        content.entries.replace(place, withFormula(content.entries.at(place).toObject(), formula));
    else
        content.entries.append(withFormula(QJsonObject(), formula));
    return write(content);
}

QString FormulaStore::duplicate(const QString& name, QString& copy)
{
    Content content;
    const QString failure = load(content);
    if (!failure.isEmpty())
        return failure;
    const int place = placeOf(content.entries, name);
    if (place < 0)
        return unknownFormula(name);
    QJsonObject entry = content.entries.at(place).toObject();
    const QString found = freeNameIn(content.entries, name);
    entry.insert(kName, found);
    if (entry.contains(kDisplayName))
        entry.insert(kDisplayName, freeNameIn(content.entries, formulaOf(entry).displayName));
    content.entries.insert(place + 1, entry);
    const QString fault = write(content);
    if (fault.isEmpty())
        copy = found;
    return fault;
}

QString FormulaStore::remove(const QString& name)
{
    Content content;
    const QString failure = load(content);
    if (!failure.isEmpty())
        return failure;
    const int place = placeOf(content.entries, name);
    if (place < 0)
        return unknownFormula(name);
    content.entries.removeAt(place);
    return write(content);
}

QString FormulaStore::freeName(const QString& word) const
{
    Content content;
    load(content); // without a readable file there are only the built-in names to avoid
    return freeNameIn(content.entries, word);
}

QString FormulaStore::load(Content& content) const
{
    QFile file(m_path);
    if (!file.exists())
        return QString();
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("公式文件打不开：%1").arg(file.errorString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    const QJsonValue list = document.object().value(kFormulas);
    if (error.error != QJsonParseError::NoError || !document.isObject()
        || !(list.isArray() || list.isUndefined()))
        return QStringLiteral("公式文件已损坏，未作改动。可在“工具”菜单里恢复公式。");
    content = { document.object(), list.toArray() };
    return QString();
}

QString FormulaStore::write(Content& content)
{
    if (m_beforeChange)
        m_beforeChange();
    content.root.insert(kFormulas, content.entries);
    const QByteArray json = QJsonDocument(content.root).toJson();
    QSaveFile file(m_path);
    if (file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit())
        return QString();
    return QStringLiteral("公式文件写不了：%1").arg(file.errorString());
}

} // namespace client
