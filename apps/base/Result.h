// SPDX-License-Identifier: MIT
#pragma once
/// @file How a step ended that may fail.

#include <QString>

#include <optional>
#include <utility>

/// What both programs rest on: outcomes of steps, files, texts.
namespace base {

/// Why something was not done: one line for the user.
struct Failure
{
    QString reason;
};

/// What a step brought, or why it did not. Read `*result` only after isGood().
template <typename Value>
class [[nodiscard]] Result
{
public:
    Result(Value value) // NOLINT(google-explicit-constructor): `return value;`
        : m_value(std::move(value))
    {
    }
    Result(Failure failure) // NOLINT(google-explicit-constructor): `return Failure { ... };`
        : m_failure(std::move(failure))
    {
    }

    bool isGood() const { return m_value.has_value(); }
    /// Empty when all went well.
    const QString& reason() const { return m_failure.reason; }
    const Failure& failure() const { return m_failure; }

    Value& operator*() { return *m_value; }
    Value* operator->() { return &*m_value; }

private:
    std::optional<Value> m_value;
    Failure m_failure;
};

/// Whether a step was carried out, and why it was not.
template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(Failure failure) // NOLINT(google-explicit-constructor)
        : m_failure(std::move(failure))
    {
    }

    bool isGood() const { return !m_failure.has_value(); }
    QString reason() const { return m_failure ? m_failure->reason : QString(); }
    Failure failure() const { return m_failure.value_or(Failure()); }

private:
    std::optional<Failure> m_failure;
};

} // namespace base
