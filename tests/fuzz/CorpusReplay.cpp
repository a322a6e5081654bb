// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

TEST(FuzzCorpus, RunsClean) {
    size_t inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(CORPUS)) {
        std::cout << entry.path() << std::endl; // the last one is at fault where the target ends the program
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()), 0);
        ++inputs;
    }
    EXPECT_GT(inputs, 0U);
}
