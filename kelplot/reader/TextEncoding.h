// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>

class QTextCodec;

namespace kelplot {

/// How the bytes of texts stand for characters.
struct CodePage {
    QTextCodec* codec = nullptr; ///< null: unknown
    bool multiByte = false;      ///< some characters take two bytes
};

/// The code page that a drawing names, such as "ANSI_1251" or "dos932".
CodePage codePageOfDrawing(std::string_view name);

/// The code page of an escape \\M+NXXXX by its digit N.
CodePage codePageOfEscape(char digit);

/// Whether `bytes` are valid UTF-8.
bool isUtf8(std::string_view bytes);

/// Whether valid UTF-8 is unlikely to be a text of `page` that merely looks like UTF-8.
bool outweighs(std::string_view utf8, const CodePage& page);

/// Turns the bytes of a drawing's names and texts into UTF-8, by the drawing's version and code page.
class TextEncoding {
public:
    /// The drawing's version as its header has it, such as "AC1015".
    void setVersion(std::string_view version);

    /// The drawing's code page as its header has it, such as "ANSI_1251".
    void setCodePage(std::string_view name);

    /// The code page that the drawing names for its texts, where nothing here can decode it; else empty.
    std::string unknownCodePage() const;

    /// `bytes` as UTF-8, with the escapes \\U+XXXX and \\M+NXXXX replaced by what they stand for.
    std::string decode(std::string_view bytes) const;

    /// As `decode`, for texts in which a double backslash stands for one that begins no escape; it is left doubled.
    std::string decodeMarkup(std::string_view bytes) const;

    /// The character that a single byte of the drawing's code page stands for; empty for control characters.
    std::string decodeByte(unsigned char byte) const;

private:
    std::string decodeBytes(std::string_view bytes) const;

    bool m_unicode = false;
    std::string m_codePageName;
    CodePage m_codePage;
};

} // namespace kelplot
