// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/Utility.h"

#include <string>
#include <unistd.h>
#include <vector>

#include "keldriver/PrivateProfile.h"
#include "port/MultiByte.h"
#include "settings/DriverFolder.h"

using namespace KelDriver::Internal;

namespace {

std::wstring g_appdataPath; // what the host set; empty until then

// The path of the running executable; empty when the system does not tell it.
std::string executablePath() {
    char link[259];
    const ssize_t length = readlink("/proc/self/exe", link, sizeof link);
    return length > 0 ? std::string(link, static_cast<size_t>(length)) : std::string();
}

} // namespace

void VornSetAppDataPath(const wchar_t* path) {
    if (path != nullptr) {
        g_appdataPath = path;
    }
}

const wchar_t* VornGetAppDataPath() {
    return g_appdataPath.empty() ? VornGetAppFullPath() : g_appdataPath.c_str();
}

const wchar_t* VornGetAppFullPath() {
    static std::wstring g_str;
    if (g_str.empty()) {
        const std::string executable = executablePath();
        if (!executable.empty()) {
            g_str = fromMultiByte(driverFolderBeside(executable));
        }
    }
    return g_str.c_str();
}

const wchar_t* VornGetAppDataPathWithBackslash() {
    static std::wstring strAppDataPath;
    strAppDataPath = VornGetAppDataPath();
    // A backslash on this platform too: part of the interface.
    if (strAppDataPath.empty() || (strAppDataPath.back() != L'\\' && strAppDataPath.back() != L'/')) {
        strAppDataPath += L'\\';
    }
    return strAppDataPath.c_str();
}

int HT_ListCloseDriver(wchar_t* buffer, int size, const wchar_t* file) {
    if (size < 0) {
        return 0;
    }
    if (size > 0) {
        return GetPrivateProfileSectionNamesEx(buffer, static_cast<unsigned int>(size), file);
    }
    // The Win32 rule is that a list which does not fit answers its buffer's size less 2. Here a list is cut at a name,
    // so that only names that happen to end just there make the buffer grow: part of the interface.
    for (unsigned int room = 256;; room *= 2) {
        std::vector<wchar_t> names(room);
        const int used = GetPrivateProfileSectionNamesEx(names.data(), room, file);
        if (used != static_cast<int>(room - 2)) {
            return used + 2;
        }
    }
}

int HT_IsSupportGDIPlus() {
    return 1;
}

PortMonitor::PortMonitor() = default;
PortMonitor::~PortMonitor() = default;
