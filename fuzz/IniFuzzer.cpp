// SPDX-License-Identifier: BSD-3-Clause

// Loads any text as a settings file, changes it, and saves and reloads it.
//
// Input: edits until one of kind 7, then the text of the file. An edit is a byte with its kind in the three lowest
// bits, and three short texts: section, key, value. A short text is a byte with its length and its bytes.

#include <cstdint>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "MemoryFile.h"
#include "Require.h"
#include "keldriver/IniFile.h"
#include "settings/ProfileSession.h"

using namespace KelDriver::Internal;

namespace {

struct Edit {
    unsigned kind;
    std::string section, key, value;
};

std::string takeText(FuzzInput& input, size_t length) {
    std::string text;
    for (; length > 0 && !input.atEnd(); --length) {
        text += static_cast<char>(input.take<uint8_t>());
    }
    return text;
}

std::vector<Edit> takeEdits(FuzzInput& input) {
    std::vector<Edit> edits;
    while (!input.atEnd()) {
        Edit edit{input.take<uint8_t>() & 7U, {}, {}, {}};
        if (edit.kind == 7) {
            break;
        }
        for (std::string* text : {&edit.section, &edit.key, &edit.value}) {
            *text = takeText(input, input.take<uint8_t>() & 31U);
        }
        edits.push_back(edit);
    }
    return edits;
}

void apply(inifile::IniFile& file, const Edit& edit) {
    std::string found;
    switch (edit.kind) {
    case 0:
        return file.DeleteSection(edit.section);
    case 1:
        file.DeleteKey(edit.section, edit.key);
        break;
    case 2:
        require((file.SetComment(edit.section, edit.key, edit.value) == 0) ==
                (file.GetComment(edit.section, edit.key, found) == 0));
        require(found.empty() || found == edit.value);
        break;
    case 3:
        file.SetRightComment(edit.section, edit.key, edit.value);
        break;
    case 4:
        file.getSection(edit.section); // from now on names are looked up in another way
        break;
    default:
        file.setValue(edit.section, edit.key, edit.value, edit.kind == 5 ? "" : edit.value);
        require(file.HasKey(edit.section, edit.key) && file.getValue(edit.section, edit.key, found) == 0);
        require(found == edit.value);
    }
}

/// What has been read and saved twice does not change any more: notes of headers are comments by then.
void requireStable(const MemoryFile& disk) {
    inifile::IniFile file;
    if (file.Load(disk.path()) != 0) {
        return;
    }
    file.Save();
    require(file.Load(disk.path()) == 0);
    file.Save();
    const std::string saved = disk.read();
    require(file.Load(disk.path()) == 0);
    file.Save();
    require(disk.read() == saved);
}

/// Settings made one by one, each with a read and a write of the file, and the same in a session.
void requireSameBytes(const std::string& text, const std::vector<Edit>& edits) {
    const MemoryFile alone, together;
    alone.write(text);
    together.write(text);
    ProfileSession session(together.path());
    for (const Edit& edit : edits) {
        inifile::IniFile file;
        if (file.Load(alone.path()) == 0) {
            file.SetStringValue(edit.section, edit.key, edit.value);
            file.Save();
        }
        session.writeString(edit.section, edit.key, edit.value);
        if (edit.kind == 0) {
            session.flush();
            require(together.read() == alone.read());
        }
    }
    session.flush();
    require(together.read() == alone.read());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const std::vector<Edit> edits = takeEdits(input);
    const std::string text = takeText(input, size);
    const MemoryFile disk;
    disk.write(text);
    inifile::IniFile file;
    const int code = file.Load(disk.path());
    require(code == 0 || (code >= 2 && code <= 5 && !file.GetErrMsg().empty()));
    for (const Edit& edit : edits) {
        apply(file, edit);
    }
    file.Save();
    requireStable(disk);
    requireSameBytes(text, edits);
    return 0;
}
