// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "keldriver/Export.h"

namespace KelDriver::Internal {
class IniSections;
}

namespace inifile {

/// One key line of a settings file. Texts are the bytes of the file, undecoded.
struct IniItem {
    std::string key;          ///< trimmed
    std::string value;        ///< trimmed
    std::string comment;      ///< the comment and blank lines above the key, whole, each ended by a newline
    std::string rightComment; ///< the note after the value, trimmed, without the delimiter
};

/// One section of a settings file.
struct IniSection {
    std::string name;           ///< trimmed; empty for the keys before the first header
    std::string comment;        ///< the comment and blank lines above the header, whole, each ended by a newline
    std::string rightComment;   ///< the note after the header, trimmed, without the delimiter
    std::vector<IniItem> items; ///< in file order; a key may occur more than once
};

/// A settings file in memory: sections and keys in their order, with all comments, to read, edit and write back.
///
/// Names of sections and keys are compared byte by byte; of several equal ones the first counts. Operations with
/// an `int` result answer 0 or one of these codes, and then `GetErrMsg` tells more:
///
/// | Code | Meaning |
/// |---|---|
/// | 2 | a header has no closing bracket |
/// | 3 | a header has nothing between its brackets |
/// | 4 | a header names a section that exists already |
/// | 5 | a line that is no comment has no equals sign |
/// | 6 | the file cannot be read |
/// | 8 | the section has no such key |
/// | 9 | there is no such section |
class KELDRIVER_API IniFile {
public:
    /// Has no sections and no path, and "#" for the comment delimiter.
    IniFile();
    /// A file in memory has one owner: share it by reference.
    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;
    /// Writes nothing.
    ~IniFile();

    /// Replaces the content by that of a file, and remembers the path for `Save`. Throws `std::bad_alloc` for a file
    /// too large for the memory.
    ///
    /// Comment lines after the last key are not kept. Afterwards the unnamed section is there even when no key
    /// stands before the first header.
    ///
    /// @return 0; 6 and no sections when the file cannot be opened or read to its end; 2 to 5 at the first malformed
    ///         line, and then what stood above it is kept
    int Load(const std::string& path);
    /// Writes the content to the file last loaded, as `SaveAs` does. After a `Load` that met a malformed line, what
    /// stood below it is lost.
    int Save();
    /// Replaces the content of a file, or creates it. The old content stands until the new one is complete: a kill,
    /// or a full device, leaves one or the other. The file keeps owner, mode and links, but is a new inode. A file is
    /// overwritten in place, which a kill can cut short, when it has several names, an access list or extended
    /// attributes, an owner that this process cannot give it again, or a folder that takes no new file.
    ///
    /// What others have written since `Load` is replaced, too. Only a file that is there and that `Load` could not
    /// read (code 6) is left as it is.
    ///
    /// The note of a header is written below it without a line end: what is written next is joined to it, and is part
    /// of a comment when the file is read back. That is the first line of the comment above the section's first key
    /// or, without one, the key itself, which is lost. In a section without keys it is the next section's comment or,
    /// without one, its header: then that section is lost, and its keys belong to the one with the note.
    ///
    /// @return 0, even when the file could not be written
    int SaveAs(const std::string& path);
    /// Drops the content and the path.
    void release();

    /// The value of a key, and the comment above it. On failure, codes 8 and 9, nothing is stored.
    int getValue(const std::string& section, const std::string& key, std::string& value, std::string& comment);
    /// As the other `getValue`, without the comment.
    int getValue(const std::string& section, const std::string& key, std::string& value);
    /// As `getValue`.
    int GetStringValue(const std::string& section, const std::string& key, std::string& value);
    /// Stores the default when there is no such key; still answers the code of the lookup.
    int GetStringValueOrDefault(const std::string& section, const std::string& key, std::string& value,
                                const std::string& defaultValue);

    /// Stores the number that the value begins with; 0 when there is none or no such key. Numbers are decimal; one too
    /// large for a `long` becomes the nearest `long`, and its low 32 bits are stored.
    int GetIntValue(const std::string& section, const std::string& key, int& value);
    /// As `GetIntValue`, with the default when there is no such key; a value that is no number still gives 0.
    int GetIntValueOrDefault(const std::string& section, const std::string& key, int& value, int defaultValue);
    /// Stores the number that the value begins with, with a point whatever the locale; 0 when there is none or no such
    /// key.
    int GetDoubleValue(const std::string& section, const std::string& key, double& value);
    /// As `GetDoubleValue`, with the default when there is no such key; a value that is no number still gives 0.
    int GetDoubleValueOrDefault(const std::string& section, const std::string& key, double& value, double defaultValue);
    /// Stores true for "true" and "1", false for "false" and "0", in any case of letters. Any other value, and a
    /// missing key, leaves `value` untouched.
    int GetBoolValue(const std::string& section, const std::string& key, bool& value);
    /// As `GetBoolValue`, with the default when there is no such key.
    int GetBoolValueOrDefault(const std::string& section, const std::string& key, bool& value, bool defaultValue);

    /// Appends the value, and the comment, of every item with that key, in file order.
    int GetValues(const std::string& section, const std::string& key, std::vector<std::string>& values,
                  std::vector<std::string>& comments);
    /// As the other `GetValues`, without the comments.
    int GetValues(const std::string& section, const std::string& key, std::vector<std::string>& values);

    /// Appends the names of all sections in their order, the empty one too.
    ///
    /// @return the size of the list
    int GetSections(std::vector<std::string>& names);
    /// The number of sections, the unnamed one included.
    int GetSectionNum() const;
    /// The first section of that name; null when there is none. It stays the file's own: it lives until it is
    /// deleted, or the content is replaced.
    IniSection* getSection(const std::string& section);
    /// Whether there is a section of that name. Leaves the message alone, as does `HasKey`.
    bool HasSection(const std::string& section) const;
    /// Whether the first section of that name has an item with that key.
    bool HasKey(const std::string& section, const std::string& key) const;

    /// The comment above a key; above the section's header when `key` is empty. Codes 8 and 9.
    int GetComment(const std::string& section, const std::string& key, std::string& comment);
    /// The note after a key's value; after the section's header when `key` is empty.
    int GetRightComment(const std::string& section, const std::string& key, std::string& rightComment);
    /// The message of the last failure; a success does not clear it.
    const std::string& GetErrMsg() const;

    /// Sets the value of a key and the comment above it, creating both section and key where they are missing.
    ///
    /// A new section becomes the last one; the unnamed one becomes the first.
    ///
    /// @param comment  without the delimiter, which is put in front of it; empty to have none
    /// @return 0
    int setValue(const std::string& section, const std::string& key, const std::string& value,
                 const std::string& comment = {});
    /// Sets a value as `setValue` does, without a comment: an existing key loses the one above it.
    int SetStringValue(const std::string& section, const std::string& key, const std::string& value);
    /// As `SetStringValue`, with the number in decimal digits.
    int SetIntValue(const std::string& section, const std::string& key, int value);
    /// As `SetStringValue`, with six decimals after a point, whatever the locale.
    int SetDoubleValue(const std::string& section, const std::string& key, double value);
    /// As `SetStringValue`, with "true" or "false".
    int SetBoolValue(const std::string& section, const std::string& key, bool value);
    /// Stores the text unchanged above a key, or above the section's header when `key` is empty. A comment needs
    /// its delimiter in front of each line; without it the file reads back differently.
    int SetComment(const std::string& section, const std::string& key, const std::string& comment);
    /// Stores the note after a key's value, or after the section's header when `key` is empty, without a delimiter.
    int SetRightComment(const std::string& section, const std::string& key, const std::string& rightComment);
    /// What begins a comment from now on, "#" at first; what has been read stays as it is.
    void SetCommentDelimiter(const std::string& delimiter);
    /// Removes the first section of that name, if there is one.
    void DeleteSection(const std::string& section);
    /// Removes the first item with that key, if there is one.
    void DeleteKey(const std::string& section, const std::string& key);

    /// Writes the content to standard output, to look at.
    void print() const;

    /// Removes blanks, tabs, newlines, vertical tabs, form feeds and carriage returns at both ends.
    static void trim(std::string& text);
    /// Removes the leading run of `c`.
    static void trimleft(std::string& text, char c);
    /// Removes the trailing run of `c`.
    static void trimright(std::string& text, char c);
    /// Splits a text at the first separator, and trims both parts.
    ///
    /// One byte is skipped after the left part, whatever the separator's length: the rest of a longer one stays
    /// at the head of the right part.
    ///
    /// @return whether the separator was found; if not, `left` takes the whole text and `right` is empty
    static bool split(const std::string& text, const std::string& separator, std::string& left, std::string& right);
    /// Splits a line at its first equals sign, as `split` does.
    static bool parse(const std::string& line, std::string& key, std::string& value);
    /// Whether the line begins with the comment delimiter.
    bool IsCommentLine(const std::string& line) const;
    /// Whether a text begins with `prefix`.
    static bool StartWith(const std::string& text, const std::string& prefix);
    /// Whether two texts are equal but for the case of letters, byte by byte.
    static bool StringCmpIgnoreCase(const std::string& a, const std::string& b);

private:
    std::unique_ptr<KelDriver::Internal::IniSections> sections;
    std::string filePath;
    std::string commentDelimiter = "#";
    std::string errMsg;
    bool isLeftAlone = false; ///< the file is there, but what it holds could not be read
};

} // namespace inifile
