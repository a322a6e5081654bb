// SPDX-License-Identifier: BSD-3-Clause
#include "render/WideText.h"

#include <QChar>

namespace KelDriver::Internal {

QString toQString(std::wstring_view text) {
    QString result;
    result.reserve(static_cast<int>(text.size()));
    for (const wchar_t character : text) {
        const auto code = static_cast<char32_t>(character);
        if (code > QChar::LastValidCodePoint) {
            result += QChar(QChar::ReplacementCharacter);
        } else if (QChar::requiresSurrogates(code)) {
            result += QChar(QChar::highSurrogate(code));
            result += QChar(QChar::lowSurrogate(code));
        } else {
            result += QChar(code);
        }
    }
    return result;
}

} // namespace KelDriver::Internal
