// SPDX-License-Identifier: MIT
#include "apps/client/session/ChartChoices.h"

#include <QJsonArray>
#include <QStringList>

#include <algorithm>

namespace client {

namespace {

constexpr int kWidestMargin = 200; // slots
constexpr int kMostNumbers = 200;
/// In the order of chart::AxisKind.
const QStringList& axisNames()
{
    static const QStringList names { QStringLiteral("linear"), QStringLiteral("logarithmic"),
                                     QStringLiteral("percent"), QStringLiteral("indexed") };
    return names;
}

QJsonArray packed(const QVector<double>& numbers)
{
    QJsonArray all;
    for (double number : numbers)
        all.append(number);
    return all;
}

QVector<double> unpacked(const QJsonArray& all)
{
    QVector<double> numbers;
    for (const QJsonValue& value : all) {
        if (value.isDouble() && numbers.size() < kMostNumbers)
            numbers << value.toDouble();
    }
    return numbers;
}

} // namespace

QJsonObject ChartChoices::toJson() const
{
    QJsonObject lines;
    for (auto entry = priceLines.begin(); entry != priceLines.end(); ++entry)
        lines.insert(entry.key(), packed(entry.value()));
    return { { QStringLiteral("period"), period },
             { QStringLiteral("margin"), margin },
             { QStringLiteral("axis"), axisNames().at(static_cast<int>(axis)) },
             { QStringLiteral("magnetic"), isMagnetic },
             { QStringLiteral("priceLines"), lines },
             { QStringLiteral("stretches"), packed(stretches) } };
}

ChartChoices ChartChoices::fromJson(const QJsonObject& json)
{
    ChartChoices choices;
    choices.period = json.value(QStringLiteral("period")).toString();
    choices.margin = std::clamp(json.value(QStringLiteral("margin")).toInt(choices.margin), 0, kWidestMargin);
    const int axis = axisNames().indexOf(json.value(QStringLiteral("axis")).toString());
    choices.axis = static_cast<chart::AxisKind>(std::max(0, axis));
    choices.isMagnetic = json.value(QStringLiteral("magnetic")).toBool();
    const QJsonObject lines = json.value(QStringLiteral("priceLines")).toObject();
    for (auto entry = lines.begin(); entry != lines.end(); ++entry)
        choices.priceLines.insert(entry.key(), unpacked(entry.value().toArray()));
    choices.stretches = unpacked(json.value(QStringLiteral("stretches")).toArray());
    return choices;
}

} // namespace client
