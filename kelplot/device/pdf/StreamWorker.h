// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "device/OutputFile.h"
#include "device/pdf/PdfBytes.h"

struct libdeflate_compressor;

namespace kelplot {

/// A stream of a PDF document on its way to the file.
struct PdfStream {
    int number = 0;         ///< of the object
    std::string dictionary; ///< its entries, but those of the length and of the compression
    PdfBytes bytes;
    bool compressed = true; ///< false: it is written as it is
};

/// Compresses the streams of a document and writes them in their order, in a thread beside the one that makes them.
class StreamWorker {
public:
    /// Begins the document.
    ///
    /// @param file  borrowed for the worker's life, and its own until `finish`
    explicit StreamWorker(OutputFile& file);
    /// Drops what is not written yet.
    ~StreamWorker();
    StreamWorker(const StreamWorker&) = delete;
    StreamWorker& operator=(const StreamWorker&) = delete;

    /// Takes a stream, as soon as not too many are waiting. Throws the failure of an earlier one.
    void add(PdfStream stream);
    /// Waits until all is written. Throws the failure of any stream.
    void finish();

    /// Where each object begins, by its number; 0: not here. To be asked after `finish`.
    const std::vector<int64_t>& offsets() const { return m_offsets; }
    int64_t size() const { return m_size; } ///< of the file; likewise
    /// A number that tells this content from other content; likewise.
    uint64_t fingerprint() const { return uint64_t{m_crc} << 32 | m_adler; }

private:
    void run();
    void takeAll();
    void write(const PdfStream& stream);
    void write(std::string_view bytes);
    std::string_view deflated(const PdfBytes& bytes);
    void throwFailure();

    OutputFile& m_file;
    std::vector<int64_t> m_offsets;
    int64_t m_size = 0;
    uint32_t m_crc = 0;
    uint32_t m_adler = 1;
    libdeflate_compressor* m_compressor = nullptr;
    std::vector<char> m_deflated;

    std::mutex m_mutex; ///< for what follows
    std::condition_variable m_changed;
    std::deque<PdfStream> m_waiting;
    size_t m_waitingBytes = 0; ///< with those of the stream that is being written
    bool m_isLast = false;
    std::exception_ptr m_failure;
    std::thread m_thread;
};

} // namespace kelplot
