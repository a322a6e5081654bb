// SPDX-License-Identifier: BSD-3-Clause

// What a person's files go through when a writer is killed, meets another writer or finds no room.

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>

#include <gtest/gtest.h>

#include "keldriver/IniFile.h"
#include "keldriver/Paper.h"
#include "keldriver/PrivateProfile.h"
#include "settings/FileReplacement.h"
#include "settings/WriterLock.h"
#include "support/TemporaryDirectory.h"

using namespace KelDriver::Internal;

namespace {

std::wstring wide(const std::string& text) {
    return {text.begin(), text.end()};
}

void setValue(const std::string& path, const std::string& key, const std::string& value) {
    WritePrivateProfileStringEx(L"s", wide(key).c_str(), wide(value).c_str(), wide(path).c_str());
}

/// Runs `work` in a process of its own.
template <typename Work>
pid_t startProcess(const Work& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    return child;
}

auto filesIn(const TemporaryDirectory& directory) {
    return std::distance(std::filesystem::directory_iterator(directory.path()), {});
}

struct stat statusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status;
}

} // namespace

TEST(SafeWriting, AKillLeavesTheOldTextOrTheNewOne) {
    const TemporaryDirectory directory;
    const std::string rest = "[t]\nfill=" + std::string(60000, 'f') + "\n";
    const std::string values[] = {"short", std::string(20000, 'v')};
    const size_t counts[] = {1, 300};
    const std::string ini = directory.write("s.ini", "[s]\nk=short\n" + rest), binary = directory.path("p.PER");
    const std::vector<PaperSize> papers(counts[1]);
    const auto writeBoth = [&](int version) {
        setValue(ini, "k", values[version]);
        HT_WritePaperFile(wide(binary).c_str(), papers.data(), static_cast<int>(counts[version]));
    };
    const auto start = std::chrono::steady_clock::now();
    writeBoth(1);
    writeBoth(0);
    std::uniform_int_distribution<int64_t> nanoseconds(0, (std::chrono::steady_clock::now() - start).count());
    std::mt19937 random(1);
    int newTexts = 0, newLists = 0;
    auto& rounds = *static_cast<std::atomic<int>*>(
        mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    for (int kill = 0; kill < 300; ++kill) {
        rounds = 0;
        const pid_t writer = startProcess([&] {
            for (;;) {
                writeBoth(++rounds % 2);
            }
        });
        while (rounds < 3) { // both have been written
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
        std::this_thread::sleep_for(std::chrono::nanoseconds(nanoseconds(random)));
        ASSERT_EQ(::kill(writer, SIGKILL), 0);
        ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
        const std::string text = directory.read("s.ini"), list = directory.read("p.PER");
        const int textVersion = text.size() > rest.size() + values[1].size(), listVersion = list.size() > 28 + 160;
        ASSERT_TRUE(text == "[s]\nk=" + values[textVersion] + "\n" + rest) << text.size();
        ASSERT_EQ(list.size(), 28 + 160 * counts[listVersion]);
        newTexts += textVersion;
        newLists += listVersion;
    }
    EXPECT_TRUE(newTexts > 0 && newTexts < 300 && newLists > 0 && newLists < 300) << "no kill met the writing";
    writeBoth(0);
    EXPECT_EQ(filesIn(directory), 2) << "what a kill left goes with the next";
}

TEST(SafeWriting, WritersOfOneFileTakeTurns) {
    constexpr uid_t somebody = 1234; // root may read every folder
    // The last mode lets no new file take the place of the old one.
    for (const mode_t mode : {0700U, 0311U, 0555U}) {
        SCOPED_TRACE(mode);
        const TemporaryDirectory directory;
        const std::string path = directory.write("shared.ini", "");
        EXPECT_EQ(chmod(directory.path().c_str(), mode), 0);
        if (geteuid() == 0) {
            EXPECT_EQ(chown(directory.path().c_str(), somebody, somebody), 0);
            EXPECT_EQ(chown(path.c_str(), somebody, somebody), 0);
        }
        const auto writeKeys = [&](const std::string& prefix) {
            for (int i = 0; i < 500; ++i) {
                setValue(path, prefix + std::to_string(i), "1");
            }
        };
        for (const std::string name : {"a", "b"}) {
            startProcess([&] {
                if (geteuid() != 0 || setuid(somebody) == 0) {
                    std::thread other(writeKeys, name + "x");
                    writeKeys(name + "y");
                    other.join();
                }
            });
        }
        while (wait(nullptr) > 0) {
        }
        EXPECT_EQ(chmod(directory.path().c_str(), 0700), 0);
        inifile::IniFile file;
        EXPECT_EQ(file.Load(path), 0);
        ASSERT_TRUE(file.HasSection("s"));
        EXPECT_EQ(file.getSection("s")->items.size(), 2000U);
        EXPECT_EQ(filesIn(directory), 1); // no lock is left about
    }
}

TEST(SafeWriting, WaitsForAnotherWriterButNotForEver) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("s.ini", "");
    const WriterLock held(path);
    EXPECT_FALSE(held.isRefused());
    EXPECT_TRUE(WriterLock(directory.path("new.ini"), std::chrono::milliseconds(5)).isRefused());
    EXPECT_FALSE(WriterLock(directory.path("none/s.ini")).isRefused());
    std::filesystem::create_directory(directory.path("linked"));
    std::filesystem::create_symlink(path, directory.path("linked/s.ini"));
    EXPECT_TRUE(WriterLock(directory.path("linked/s.ini"), std::chrono::milliseconds(5)).isRefused());
}

TEST(SafeWriting, KeepsWhatAFileIsBesidesItsText) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("s.ini", "k=1\n"), link = directory.path("link.ini");
    std::filesystem::create_symlink("s.ini", link);
    for (const bool isHardLinked : {false, true}) {
        SCOPED_TRACE(isHardLinked);
        if (isHardLinked) {
            std::filesystem::create_hard_link(path, directory.path("other.ini"));
        }
        EXPECT_EQ(chmod(path.c_str(), 0640), 0);
        if (chown(path.c_str(), 1234, 2345) != 0) {
            EXPECT_NE(geteuid(), 0U);
        }
        const struct stat before = statusOf(path);
        for (const std::string& text : {std::string("a=longer than before\n"), std::string("b=\n"), std::string()}) {
            const ino_t old = statusOf(path).st_ino;
            EXPECT_TRUE(writeFile(link, text));
            EXPECT_EQ(statusOf(path).st_ino != old, !isHardLinked) << "another file in its place, at once";
            EXPECT_EQ(directory.read("s.ini"), text);
            const struct stat after = statusOf(path);
            EXPECT_EQ(after.st_mode, before.st_mode);
            EXPECT_TRUE(after.st_uid == before.st_uid && after.st_gid == before.st_gid);
            EXPECT_EQ(after.st_nlink, before.st_nlink);
            EXPECT_EQ(isHardLinked ? directory.read("other.ini") : text, text);
        }
        EXPECT_TRUE(S_ISLNK(statusOf(link).st_mode));
    }
    // A folder whose new files let user 65534 in: version 2, then tag, permissions and id of each entry.
    const uint32_t list[] = {2,   7U << 16 | 1,    ~0U, 7U << 16 | 2,    65534, 5U << 16 | 4,
                             ~0U, 7U << 16 | 0x10, ~0U, 5U << 16 | 0x20, ~0U};
    if (setxattr(directory.path().c_str(), "system.posix_acl_default", list, sizeof list, 0) == 0) {
        const std::string plain = directory.path("plain.ini");
        std::filesystem::rename(path, plain);
        EXPECT_TRUE(writeFile(plain, "k=1\n"));
        EXPECT_EQ(getxattr(plain.c_str(), "system.posix_acl_access", nullptr, 0), -1);
        EXPECT_EQ(statusOf(plain).st_mode & 0777U, 0640U);
        EXPECT_EQ(removexattr(directory.path().c_str(), "system.posix_acl_default"), 0);
    }
    const std::string noted = directory.write("noted.ini", "k=1\n");
    if (setxattr(noted.c_str(), "user.note", "n", 1, 0) == 0) { // not every file system has them
        EXPECT_TRUE(writeFile(noted, "k=1\nl=2\n"));
        EXPECT_EQ(getxattr(noted.c_str(), "user.note", nullptr, 0), 1);
    }
    std::filesystem::create_symlink("made.ini", directory.path("dangling.ini"));
    EXPECT_TRUE(writeFile(directory.path("dangling.ini"), "k=2\n"));
    EXPECT_EQ(directory.read("made.ini"), "k=2\n");
    const mode_t mask = umask(027);
    EXPECT_TRUE(writeFile(directory.path("new.ini"), ""));
    umask(mask);
    EXPECT_EQ(statusOf(directory.path("new.ini")).st_mode & 0777U, 0640U);
}

TEST(SafeWriting, WhatDoesNotFitLeavesTheOldFile) {
    const TemporaryDirectory directory;
    rlimit before{};
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const PaperSize papers[2] = {{9, L"A4", 2100, 2970, 0, 0, 0, 0, 1}, {8, L"A3", 2970, 4200, 0, 0, 0, 0, 1}};
    for (const std::string name : {"p", "q"}) { // the latter's files have two names and are written over in their place
        SCOPED_TRACE(name);
        const std::string ini = directory.path(name + ".ini"), binary = directory.path(name + ".PER");
        for (const std::string& path : {ini, binary}) {
            EXPECT_EQ(HT_WritePaperFile(wide(path).c_str(), papers, 2), 1);
            if (name == "q") {
                std::filesystem::create_hard_link(path, path + "~");
            }
        }
        const std::string text = directory.read(name + ".ini"), list = directory.read(name + ".PER");
        for (const rlim_t limit : {0U, 100U}) {
            const rlimit small{limit, before.rlim_max};
            EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
            inifile::IniFile file;
            EXPECT_EQ(file.Load(ini), 0);
            EXPECT_EQ(file.Save(), 0);
            setValue(ini, "k", "v");
            EXPECT_EQ(HT_WritePaperFile(wide(ini).c_str(), papers, 1), 1);
            EXPECT_EQ(HT_WritePaperFile(wide(binary).c_str(), papers, 1), 0);
            for (const std::string& path : {ini, binary}) {
                int first = 9;
                EXPECT_EQ(HT_DefaultCreatePaper(nullptr, {-1, L"", 1, 1, 0, 0, 0, 0, 1}, wide(path).c_str()), -1);
                EXPECT_EQ(HT_DefaultDeletePaper(nullptr, first, wide(path).c_str()), 0);
            }
            EXPECT_EQ(HT_WritePaperFile(wide(directory.path("new.PER")).c_str(), papers, 2), 0);
            EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
            EXPECT_FALSE(directory.exists("new.PER"));
            EXPECT_TRUE(directory.read(name + ".ini") == text && directory.read(name + ".PER") == list);
        }
    }
}
