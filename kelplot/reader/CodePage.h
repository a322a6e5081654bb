// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

class QTextCodec;

namespace kelplot {

/// How the bytes of texts stand for characters.
struct CodePage {
    QTextCodec* codec = nullptr; ///< null: nobody knows
    bool multiByte = false;      ///< some characters take two bytes
};

/// The code page that a drawing names, such as "ANSI_1251" or "dos932".
CodePage codePageOfDrawing(std::string_view name);

/// The code page of an escape \\M+NXXXX by its digit N.
CodePage codePageOfEscape(char digit);

/// Whether `bytes` are sound UTF-8.
bool isUtf8(std::string_view bytes);

/// Whether sound UTF-8 can hardly be a text of `page` that only looks like it.
bool outweighs(std::string_view utf8, const CodePage& page);

} // namespace kelplot
