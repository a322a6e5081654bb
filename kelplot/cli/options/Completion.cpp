// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/options/Completion.h"

#include <QStringList>

#include "cli/options/OptionTable.h"

namespace kelplot {
namespace {

/// An option as it is typed, in all its forms.
QStringList formsOf(const OptionRow& row) {
    QStringList forms{QStringLiteral("--") + QLatin1String(row.name)};
    if (row.shortName) {
        forms.prepend(QLatin1Char('-') + QLatin1String(row.shortName));
    }
    return forms;
}

bool takes(const OptionRow& row, const char* value) {
    return row.valueName && QLatin1String(row.valueName) == QLatin1String(value);
}

/// The command by which bash finds the values of an option; empty for those that are free.
QString bashValuesOf(const OptionRow& row) {
    if (row.choices) {
        return QStringLiteral("compgen -W '%1' -- \"$word\"").arg(QLatin1String(row.choices));
    }
    if (takes(row, "PAPER")) {
        // Unlike the other choices, names hold blanks and marks that the shell would act on.
        return QStringLiteral("IFS=$'\\n'; compgen -W \"$(kelplot --list-papers 2>/dev/null | cut -f1 | "
                              "sed 's/[^[:alnum:]]/\\\\&/g')\" -- \"$word\"");
    }
    if (takes(row, "DIR")) {
        return QStringLiteral("compgen -d -- \"$word\"");
    }
    return takes(row, "FILE") ? QStringLiteral("compgen -f -- \"$word\"") : QString();
}

QString bashCompletion() {
    QString values;
    QStringList all;
    for (const OptionRow& row : optionRows()) {
        all << formsOf(row);
        if (row.valueName) {
            const QString found = bashValuesOf(row);
            values += QStringLiteral("    %1) %2 ;;\n")
                          .arg(formsOf(row).join(QStringLiteral(" | ")),
                               found.isEmpty() ? QStringLiteral("return")
                                               : QStringLiteral("mapfile -t COMPREPLY < <(%1); return").arg(found));
        }
    }
    return QStringLiteral(R"(# bash completion for kelplot; made by: kelplot --completion bash
_kelplot() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $before in
%1    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '%2' -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -X '!*.[dD][xX][fF]' -- "$word"; compgen -d -- "$word")
    fi
}
complete -o filenames -F _kelplot kelplot
)")
        .arg(values, all.join(QLatin1Char(' ')));
}

/// A text within single quotes, where zsh takes brackets and colons for the end of it.
QString zshQuoted(const char* text) {
    QString quoted = QString::fromLatin1(text);
    quoted.replace(QLatin1Char('\''), QStringLiteral("'\\''"));
    for (const char mark : {'[', ']', ':'}) {
        quoted.replace(QLatin1Char(mark), QLatin1Char('\\') + QString(QLatin1Char(mark)));
    }
    return quoted;
}

QString zshValuesOf(const OptionRow& row) {
    if (row.choices) {
        return QStringLiteral("(%1)").arg(QLatin1String(row.choices));
    }
    if (takes(row, "PAPER")) {
        return QStringLiteral("{compadd -- ${(f)\"$(kelplot --list-papers 2>/dev/null | cut -f1)\"}}");
    }
    if (takes(row, "DIR")) {
        return QStringLiteral("_files -/");
    }
    return takes(row, "FILE") ? QStringLiteral("_files") : QStringLiteral(" ");
}

QString zshCompletion() {
    QString options;
    for (const OptionRow& row : optionRows()) {
        const QStringList forms = formsOf(row);
        for (const QString& form : forms) {
            options +=
                QStringLiteral("    '(%1)%2[%3]").arg(forms.join(QLatin1Char(' ')), form, zshQuoted(row.description));
            if (row.valueName) {
                options += QStringLiteral(":%1:%2").arg(zshQuoted(row.valueName), zshValuesOf(row));
            }
            options += QStringLiteral("' \\\n");
        }
    }
    return QStringLiteral(R"(#compdef kelplot
# zsh completion for kelplot; made by: kelplot --completion zsh
_arguments -s \
%1    '*:drawing:_files -g "*.(#i)dxf"'
)")
        .arg(options);
}

} // namespace

QString completionFor(const QString& shell) {
    return shell == QLatin1String("zsh") ? zshCompletion() : bashCompletion();
}

} // namespace kelplot
