// SPDX-License-Identifier: MIT
#pragma once
/// @file From a typed date to a bar.

#include <QDialog>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;

namespace client {

class ChartState;

/// A typed date or time, in local time.
struct TypedDate
{
    std::int64_t fromMs = 0, untilMs = 0; ///< what it names: [from, until), milliseconds since 1970-01-01 UTC
};

/// Reads 2024-01-15, 2024/1/15, 2024.1.15, 20240115, 2024-01, 202401 or 2024, a day also with a time of day
/// behind it: "2024-01-15 10:30". Nothing for anything else.
std::optional<TypedDate> readDate(const QString& text);

/// The first bar that the date names; where there is none, the nearest to it.
/// @param times  of the bars, rising, milliseconds since 1970-01-01 UTC; at least one.
/// @return nothing for dates that end before the first bar or begin behind the last one.
std::optional<int> barAtDate(const std::vector<std::int64_t>& times, const TypedDate& date);

/// Asks for a date and brings its bar into the middle of the chart, under the crosshair. A date that cannot
/// be read, or has no bar, is told below the field, and the dialog stays.
class DateJump : public QDialog
{
    Q_OBJECT

public:
    explicit DateJump(ChartState* state, QWidget* parent = nullptr);

    void accept() override;

private:
    /// What is wrong with the typed date; empty after the jump.
    QString jump();

    ChartState* m_state;
    QLineEdit* m_date;
    QLabel* m_fault;
};

} // namespace client
