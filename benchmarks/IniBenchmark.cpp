// SPDX-License-Identifier: BSD-3-Clause

// A settings file of 1 MB, loaded and saved by this library, by QSettings and, where it is found, by GLib's key file.
//
// Files lie in memory where the system has such a directory, so that no disk is measured. QSettings parses a section
// when a key of it is asked for: "first_key" stops there, as its users do, "all_keys" has it parse everything, as
// the others always do.

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

void loadIniFile(benchmark::State& state) {
    const std::string path = files().path("sample.ini");
    for (auto _ : state) {
        inifile::IniFile file;
        benchmark::DoNotOptimize(file.Load(path));
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

BENCHMARK(loadIniFile)->Name("load/IniFile")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(loadQSettings, first_key, false)->Name("load/QSettings/first_key")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(loadQSettings, all_keys, true)->Name("load/QSettings/all_keys")->Unit(benchmark::kMillisecond);
BENCHMARK(saveIniFile)->Name("save/IniFile")->Unit(benchmark::kMillisecond);
BENCHMARK(saveQSettings)->Name("save/QSettings")->Unit(benchmark::kMillisecond);

#ifdef KELDRIVER_HAS_GLIB

void load(GKeyFile* file) {
    const std::string path = files().path("sample.ini");
    if (!g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr)) {
        throw std::runtime_error("GLib does not read the sample");
    }
}

void loadKeyFile(benchmark::State& state) {
    for (auto _ : state) {
        GKeyFile* const file = g_key_file_new();
        load(file);
        g_key_file_unref(file);
    }
}

void saveKeyFile(benchmark::State& state) {
    GKeyFile* const file = g_key_file_new();
    load(file);
    const std::string path = files().path("saved.ini");
    for (auto _ : state) {
        g_key_file_save_to_file(file, path.c_str(), nullptr);
    }
    g_key_file_unref(file);
}

/// Only the text, without the file that is written beside and renamed.
void textOfKeyFile(benchmark::State& state) {
    GKeyFile* const file = g_key_file_new();
    load(file);
    for (auto _ : state) {
        g_free(g_key_file_to_data(file, nullptr, nullptr));
    }
    g_key_file_unref(file);
}

BENCHMARK(loadKeyFile)->Name("load/GKeyFile")->Unit(benchmark::kMillisecond);
BENCHMARK(saveKeyFile)->Name("save/GKeyFile")->Unit(benchmark::kMillisecond);
BENCHMARK(textOfKeyFile)->Name("save/GKeyFile/text_only")->Unit(benchmark::kMillisecond);

#endif

} // namespace

BENCHMARK_MAIN();
