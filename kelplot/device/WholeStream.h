// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QIODevice>
#include <QString>

namespace kelplot {

/// Passes on everything written to its target, or keeps the reason why it cannot. Qt's document writers take a partial
/// write for a complete one and carry on after a failure, so their callers ask here whether everything arrived.
class WholeStream final : public QIODevice {
public:
    /// @param target  open for writing and without a buffer, which would hide a failure; outlives this
    explicit WholeStream(QIODevice& target);

    /// The target's reason for its first failure; empty when there was none. Nothing is written after one.
    const QString& failure() const { return m_failure; }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

private:
    QIODevice& m_target;
    QString m_failure;
};

} // namespace kelplot
