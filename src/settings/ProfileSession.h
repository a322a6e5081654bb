// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "settings/IniSections.h"

namespace KelDriver::Internal {

/// Several profile calls on one file, with a single read of it and one write a run of settings.
///
/// Every call answers, and the file ends up, byte for byte, as if each had been a profile call of its own that
/// reads the file and writes it back. Mind that a file does not always read back as what was written: the note of
/// a header swallows the next line, a value may hold a delimiter or a line break, and a line that is malformed
/// makes the file refuse all later writes. The session follows all of that in memory.
///
/// Names and values are UTF-8. What others write to the file while the session lasts is not seen: who sets something
/// holds a `WriterLock` on the file from before the session begins until it has ended.
class ProfileSession {
public:
    /// Reads the file; when it cannot be read, every key counts as missing.
    explicit ProfileSession(std::string filePath);
    ProfileSession(const ProfileSession&) = delete;
    ProfileSession& operator=(const ProfileSession&) = delete;
    /// Calls `flush`, so that what was set before an exception is in the file.
    ~ProfileSession();

    /// Whether the file could be read, malformed or not.
    bool isRead() const { return m_state != State::Unreadable; }
    /// Whether the file could be read and has no malformed line. This and the getters write what was set before.
    bool isReadable();
    /// Creates the file, empty, when it does not exist. Tells whether `writeString` would have an effect.
    bool isWritable();

    /// As `GetPrivateProfileStringEx`, into a buffer that the caller has zeroed; a null one needs the size 0.
    int getString(std::string_view section, std::string_view key, const wchar_t* defaultValue, wchar_t* out,
                  unsigned int size);
    /// As `GetPrivateProfileIntEx`.
    int getInt(std::string_view section, std::string_view key, int defaultValue);
    /// As `GetPrivateProfileSectionNamesEx`, into a buffer that the caller has zeroed; a null one needs the size 0.
    int getSectionNames(wchar_t* out, unsigned int size);
    /// As `WritePrivateProfileStringEx`, except that the file is not written before `flush`.
    void writeString(const std::string& section, const std::string& key, const std::string& value);
    /// Writes the file when something was set since it was read or last written.
    ///
    /// @return whether all that was ever set has reached the file
    bool flush();

private:
    enum class State { Unreadable, Malformed, WellFormed };

    void read();
    void createIfMissing();
    void settle();
    void examine();

    std::string m_path;
    IniSections m_sections;
    State m_state = State::Unreadable;
    /// Whether saving and reading the model back would reproduce it, apart from the item that is not settled.
    bool m_readsBackEqual = false;
    /// The section and place of the item set last, which has not been read back yet.
    inifile::IniSection* m_unsettledSection = nullptr;
    size_t m_unsettledItem = 0;
    bool m_isUnsaved = false;
    /// Something was set that the file did not take.
    bool m_isLost = false;
    /// What the file holds, or is to hold, when it was set so that it cannot be read back.
    std::string m_malformedText;
};

} // namespace KelDriver::Internal
