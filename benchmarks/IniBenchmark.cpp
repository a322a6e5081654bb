// SPDX-License-Identifier: BSD-3-Clause

// Settings files through this library ("ours"), QSettings ("qsettings") and, where it is found, GLib's key file
// ("gkeyfile"). Names read BM_<operation>/<side>/<rest>.
//
// Load and Save take a file of 1 MB. QSettings parses a section when a key of it is asked for: "first key" stops there,
// as its users do, "all keys" has it parse everything, as the others always do. WriteKey opens a file of 100 keys,
// changes one and writes it back. Files lie in memory where the system has such a directory, so that no disk is
// measured.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <QSettings>
#include <QStringList>

#include <benchmark/benchmark.h>
#include <unistd.h>
#ifdef KELDRIVER_HAS_GLIB
#include <glib.h>
#endif

#include "keldriver/KelDriver.h"

namespace {

/// Sections with some comments: text that all three read in the same way.
std::string sampleText() {
    std::ostringstream text;
    text << "# settings of a device\n";
    for (int i = 0; text.tellp() < 1 << 20; ++i) {
        text << "\n# sheet " << i << "\n[Paper " << i << "]\nName=Oversize sheet of roll " << i << '\n';
        for (const char* key : {"Paper", "Width", "Length", "LeftEdge", "RightEdge", "DownEdge", "UpEdge", "Units"}) {
            text << key << '=' << i * 7 << '\n';
        }
    }
    return text.str();
}

/// A directory of this run's own, with the sample file in it.
class Files {
public:
    Files() {
        std::filesystem::create_directories(directory);
        std::ofstream(path("sample.ini"), std::ios::binary) << sampleText();
    }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    ~Files() { std::filesystem::remove_all(directory); }

    std::string path(const std::string& name) const { return (directory / name).string(); }

    /// The sample under a name of its own: QSettings keeps what it once parsed.
    std::string copy() {
        std::string name = path(std::to_string(++copies) + ".ini");
        std::filesystem::copy_file(path("sample.ini"), name);
        return name;
    }

private:
    static std::filesystem::path root() {
        return std::filesystem::exists("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
    }

    std::filesystem::path directory = root() / ("ini_benchmark." + std::to_string(getpid()));
    int copies = 0;
};

Files& files() {
    static Files shared;
    return shared;
}

/// Settings of 100 keys in two sections, in a file of their own.
std::string smallFile(const std::string& name) {
    std::string path = files().path(name);
    std::ofstream file(path, std::ios::binary);
    for (int i = 0; i < 100; ++i) {
        file << (i == 0 ? "[Sheet]\n" : i == 50 ? "[Pens]\n" : "") << "Key" << i << '=' << i * 7 << '\n';
    }
    return path;
}

void loadIniFile(benchmark::State& state) {
    const std::string path = files().path("sample.ini");
    for (auto _ : state) {
        inifile::IniFile file;
        benchmark::DoNotOptimize(file.Load(path));
        int width = 0;
        file.GetIntValue("Paper 1", "Width", width);
        benchmark::DoNotOptimize(width);
    }
}

void saveIniFile(benchmark::State& state) {
    inifile::IniFile file;
    file.Load(files().path("sample.ini"));
    const std::string path = files().path("saved.ini");
    for (auto _ : state) {
        file.SaveAs(path);
    }
}

void loadQSettings(benchmark::State& state, bool allKeys) {
    for (auto _ : state) {
        state.PauseTiming();
        const std::string path = files().copy();
        state.ResumeTiming();
        {
            const QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
            benchmark::DoNotOptimize(settings.value("Paper 1/Width").toInt());
            if (allKeys) {
                benchmark::DoNotOptimize(settings.allKeys().size());
            }
        }
        state.PauseTiming();
        std::filesystem::remove(path);
        state.ResumeTiming();
    }
}

void saveQSettings(benchmark::State& state) {
    const std::string path = files().copy();
    QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
    for (auto _ : state) {
        settings.setValue("Paper 1/Width", static_cast<int>(state.iterations())); // else there is nothing to save
        settings.sync();
    }
    std::filesystem::remove(path);
}

void writeKeyOurs(benchmark::State& state) {
    const std::wstring path = std::filesystem::path(smallFile("ours.ini")).wstring();
    int value = 0;
    for (auto _ : state) {
        WritePrivateProfileStringEx(L"Pens", L"Key70", std::to_wstring(++value).c_str(), path.c_str());
    }
}

void writeKeyQSettings(benchmark::State& state) {
    const QString path = QString::fromStdString(smallFile("qsettings.ini"));
    int value = 0;
    for (auto _ : state) {
        QSettings settings(path, QSettings::IniFormat);
        settings.setValue("Pens/Key70", ++value);
        settings.sync();
    }
}

BENCHMARK(loadIniFile)->Name("BM_Load/ours/all keys")->Unit(benchmark::kMillisecond);
BENCHMARK(loadIniFile)->Name("BM_Load/ours/first key")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(loadQSettings, all, true)->Name("BM_Load/qsettings/all keys")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(loadQSettings, first, false)->Name("BM_Load/qsettings/first key")->Unit(benchmark::kMillisecond);
BENCHMARK(saveIniFile)->Name("BM_Save/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(saveQSettings)->Name("BM_Save/qsettings")->Unit(benchmark::kMillisecond);
BENCHMARK(writeKeyOurs)->Name("BM_WriteKey/ours");
BENCHMARK(writeKeyQSettings)->Name("BM_WriteKey/qsettings");

#ifdef KELDRIVER_HAS_GLIB

void load(GKeyFile* file, const std::string& path) {
    if (!g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr)) {
        throw std::runtime_error("GLib does not read the sample");
    }
}

void loadKeyFile(benchmark::State& state) {
    const std::string path = files().path("sample.ini");
    for (auto _ : state) {
        GKeyFile* const file = g_key_file_new();
        load(file, path);
        benchmark::DoNotOptimize(g_key_file_get_integer(file, "Paper 1", "Width", nullptr));
        g_key_file_unref(file);
    }
}

void saveKeyFile(benchmark::State& state) {
    GKeyFile* const file = g_key_file_new();
    load(file, files().path("sample.ini"));
    const std::string path = files().path("saved.ini");
    for (auto _ : state) {
        g_key_file_save_to_file(file, path.c_str(), nullptr);
    }
    g_key_file_unref(file);
}

void writeKeyKeyFile(benchmark::State& state) {
    const std::string path = smallFile("gkeyfile.ini");
    int value = 0;
    for (auto _ : state) {
        GKeyFile* const file = g_key_file_new();
        load(file, path);
        g_key_file_set_integer(file, "Pens", "Key70", ++value);
        g_key_file_save_to_file(file, path.c_str(), nullptr);
        g_key_file_unref(file);
    }
}

BENCHMARK(loadKeyFile)->Name("BM_Load/gkeyfile/all keys")->Unit(benchmark::kMillisecond);
BENCHMARK(loadKeyFile)->Name("BM_Load/gkeyfile/first key")->Unit(benchmark::kMillisecond);
BENCHMARK(saveKeyFile)->Name("BM_Save/gkeyfile")->Unit(benchmark::kMillisecond);
BENCHMARK(writeKeyKeyFile)->Name("BM_WriteKey/gkeyfile");

#endif

} // namespace

BENCHMARK_MAIN();
