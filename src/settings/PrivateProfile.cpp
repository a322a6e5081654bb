// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/PrivateProfile.h"

#include <algorithm>
#include <string>

#include "port/Utf8.h"
#include "settings/ProfileSession.h"
#include "settings/WriterLock.h"

using namespace KelDriver::Internal;

namespace {

std::string narrow(const wchar_t* text) {
    return text != nullptr ? toUtf8(text) : std::string();
}

/// Names matter, and need to have a UTF-8 form, only where there is a file to look them up in.
std::string nameIn(ProfileSession& session, const wchar_t* name) {
    return session.isReadable() ? narrow(name) : std::string();
}

} // namespace

int GetPrivateProfileStringEx(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue, wchar_t* out,
                              unsigned int size, const wchar_t* file) {
    size = out != nullptr ? size : 0;
    std::fill_n(out, size, L'\0');
    ProfileSession session(narrow(file));
    return session.getString(nameIn(session, section), nameIn(session, key), defaultValue, out, size);
}

int GetPrivateProfileIntEx(const wchar_t* section, const wchar_t* key, int defaultValue, const wchar_t* file) {
    ProfileSession session(narrow(file));
    return session.getInt(nameIn(session, section), nameIn(session, key), defaultValue);
}

int GetPrivateProfileSectionNamesEx(wchar_t* out, unsigned int size, const wchar_t* file) {
    size = out != nullptr ? size : 0;
    std::fill_n(out, size, L'\0');
    return ProfileSession(narrow(file)).getSectionNames(out, size);
}

int WritePrivateProfileStringEx(const wchar_t* section, const wchar_t* key, const wchar_t* value, const wchar_t* file) {
    const std::string path = narrow(file);
    const WriterLock turn(path); // after a long wait it goes on without: the file stays whole
    ProfileSession session(path);
    if (session.isWritable()) {
        session.writeString(narrow(section), narrow(key), narrow(value));
        session.flush();
    }
    return 1;
}
