// SPDX-License-Identifier: BSD-3-Clause
#include <clocale>
#include <filesystem>
#include <type_traits>

#include <gtest/gtest.h>

#include "keldriver/Utility.h"
#include "port/MultiByte.h"
#include "settings/DriverFolder.h"
#include "support/TemporaryDirectory.h"

using namespace KelDriver::Internal;

static_assert(std::has_virtual_destructor_v<PortMonitor> && sizeof(PortMonitor) == sizeof(void*));

namespace {

TEST(DataPath, FallsBackToTheDriversBesideTheProgram) {
    const auto beside = std::filesystem::canonical("/proc/self/exe").parent_path() / "Drivers";
    EXPECT_EQ(VornGetAppFullPath(), beside.wstring());
    EXPECT_EQ(VornGetAppDataPath(), beside.wstring());
    EXPECT_EQ(VornGetAppDataPathWithBackslash(), beside.wstring() + L'\\');
    VornSetAppDataPath(L"/data");
    VornSetAppDataPath(nullptr);
    EXPECT_STREQ(VornGetAppDataPath(), L"/data");
    EXPECT_STREQ(VornGetAppDataPathWithBackslash(), L"/data\\");
    for (const wchar_t* path : {L"/data/", L"C:\\data\\"}) {
        VornSetAppDataPath(path);
        EXPECT_STREQ(VornGetAppDataPathWithBackslash(), path);
    }
    VornSetAppDataPath(L"");
    EXPECT_EQ(VornGetAppDataPath(), beside.wstring());
}

TEST(DriverFolder, IsCutAt259Bytes) {
    const std::string deep = "/" + std::string(252, 'd');
    EXPECT_EQ(driverFolderBeside("/opt/cad/bin/cad"), "/opt/cad/bin/Drivers");
    EXPECT_EQ(driverFolderBeside("/cad"), "/Drivers");
    EXPECT_EQ(driverFolderBeside("cad"), "cad/Drivers");
    EXPECT_EQ(driverFolderBeside(deep + "/cad"), deep + "/Drive");
    const std::string long258 = "/" + std::string(257, 'd');
    EXPECT_EQ(driverFolderBeside(long258 + "/cad"), long258 + "/");
    EXPECT_EQ(driverFolderBeside(long258 + "d/cad"), "/Drivers"); // the last slash is the 260th byte
}

TEST(MultiByteText, IsUtf8WhereTheLocaleCannotReadIt) {
    const std::string locale = std::setlocale(LC_CTYPE, nullptr);
    for (const char* const name : {"C", "C.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_CTYPE, name), nullptr);
        EXPECT_EQ(fromMultiByte("/\xC5\x81"), L"/\u0141") << name;
        EXPECT_EQ(fromMultiByte("/\xC5"), L"") << name;
    }
    std::setlocale(LC_CTYPE, locale.c_str());
}

TEST(ListCloseDriver, MeasuresWithSizeZero) {
    const TemporaryDirectory directory;
    const auto list = [&directory](const std::string& text, wchar_t* buffer, int size) {
        return HT_ListCloseDriver(buffer, size,
                                  std::filesystem::path(directory.write("d.ini", text)).wstring().c_str());
    };
    // A list of one name of so many characters, terminator included.
    const auto names = [](size_t used) {
        return "[" + std::string(used - 1, 'n') + "]\n";
    };
    EXPECT_EQ(list("", nullptr, 0), 2);
    EXPECT_EQ(list("[abc]\n[defgh]\n", nullptr, 0), 12);
    EXPECT_EQ(list(names(254), nullptr, 0), 256) << "a list that looks cut off is measured again";
    EXPECT_EQ(list(names(254) + names(256), nullptr, 0), 512) << "and again";
    EXPECT_EQ(list(names(250) + names(100), nullptr, 0), 252) << "the second name does not fit the first measure";
    wchar_t buffer[8] = {};
    EXPECT_EQ(list("[abc]\n[d]\n[ef]\n", buffer, 8), 6);
    EXPECT_EQ(std::wstring(buffer, 8), std::wstring(L"abc\0d\0\0\0", 8));
    EXPECT_EQ(list("[abc]\n", nullptr, -1), 0);
}

} // namespace
