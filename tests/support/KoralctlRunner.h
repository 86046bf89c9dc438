#pragma once

// Runs koralctl in process, the way its main() does, and keeps what it printed.

#include "cli/Command.h"

#include <QString>
#include <QStringList>

#include <sstream>
#include <string>
#include <vector>

namespace koral::test {

struct KoralctlOutcome
{
    int exitCode = -1;
    QString out;
    QString err;

    QStringList outLines() const { return out.split('\n', Qt::SkipEmptyParts); }
};

inline KoralctlOutcome runKoralctl(const QStringList& arguments)
{
    std::vector<std::string> args;
    for (const QString& argument : arguments)
        args.push_back(argument.toStdString());
    std::ostringstream out;
    std::ostringstream err;
    KoralctlOutcome outcome;
    outcome.exitCode = cli::run(args, out, err);
    outcome.out = QString::fromStdString(out.str());
    outcome.err = QString::fromStdString(err.str());
    return outcome;
}

} // namespace koral::test
