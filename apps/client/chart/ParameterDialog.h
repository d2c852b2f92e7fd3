// SPDX-License-Identifier: MIT
#pragma once
/// @file The parameters of a shown formula, to be changed.

#include <QDialog>
#include <QVector>

#include <vector>

class QDoubleSpinBox;

namespace engine {
struct Parameter;
}

namespace client {

/// A field for each parameter, within its limits, and a button that brings the defaults back.
class ParameterDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param values  in the order of the parameters; missing ones stand at their defaults.
    ParameterDialog(const QString& formula, const std::vector<engine::Parameter>& parameters,
                    const QVector<double>& values, QWidget* parent = nullptr);

    QVector<double> values() const;

private:
    std::vector<QDoubleSpinBox*> m_fields;
};

} // namespace client
