#pragma once

#include <cstdint>

/// While it stands no file of this process grows beyond some bytes, whichever thread writes it: the disk is full. On
/// Windows no byte is written, and the test program links `test_file_fault`. One at a time.
class FullDisk
{
public:
    explicit FullDisk(std::uint64_t bytes = 16);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
};
