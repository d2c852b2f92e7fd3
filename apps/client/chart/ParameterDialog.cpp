// SPDX-License-Identifier: MIT
#include "apps/client/chart/ParameterDialog.h"

#include "engine/language/Formula.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>

#include <cmath>

namespace client {

namespace {

bool isWhole(double number)
{
    return number == std::floor(number);
}

QDoubleSpinBox* fieldOf(const engine::Parameter& parameter, double value, QWidget* parent)
{
    constexpr int finest = 4; // decimals
    auto* field = new QDoubleSpinBox(parent);
    field->setDecimals(isWhole(parameter.value) && isWhole(value) ? 0 : finest);
    field->setRange(parameter.min, parameter.max);
    field->setValue(value);
    return field;
}

} // namespace

ParameterDialog::ParameterDialog(const QString& formula, const std::vector<engine::Parameter>& parameters,
                                 const QVector<double>& values, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("%1 的参数").arg(formula));
    auto* layout = new QFormLayout(this);
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        const engine::Parameter& parameter = parameters[index];
        m_fields.push_back(fieldOf(parameter, values.value(static_cast<int>(index), parameter.value), this));
        layout->addRow(QString::fromStdString(parameter.name), m_fields.back());
    }
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("确定"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("取消"), QDialogButtonBox::RejectRole);
    QPushButton* reset = buttons->addButton(tr("默认值"), QDialogButtonBox::ResetRole);
    layout->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(reset, &QPushButton::clicked, this, [this, parameters] {
        for (std::size_t index = 0; index < parameters.size(); ++index)
            m_fields[index]->setValue(parameters[index].value);
    });
}

QVector<double> ParameterDialog::values() const
{
    QVector<double> all;
    for (const QDoubleSpinBox* field : m_fields)
        all << field->value();
    return all;
}

} // namespace client
