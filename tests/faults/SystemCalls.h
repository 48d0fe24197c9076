#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Stands between the libraries under test and the system: makes a chosen call fail, and writes down what
/// would be in the memory and not yet on the disk at a power failure. One thread at a time.
namespace Tests::SystemCalls {

enum class Call : std::uint8_t { Allocate, Open, Read, Write, Flush, Rename, Map };
constexpr Call all[] = {Call::Allocate, Call::Open,   Call::Read, Call::Write,
                        Call::Flush,    Call::Rename, Call::Map};
char const* NameOf(Call call);

/// The n-th call of that kind from now on fails, and no other one; n counts from 1.
void FailAt(Call call, long n);
/// Ends that; whether the call was reached.
bool StopFailing();

/// Something that was done to a file or to a folder's list of files.
struct Operation {
    enum class Kind : std::uint8_t { Create, Write, FlushFile, FlushFolder, Rename, Remove };

    Kind kind;
    /// The name in the folder; where a file is renamed, the new one is `target`.
    std::string name;
    std::string target;
    /// Which file it is, whatever its name.
    int file = 0;
    std::string bytes;
};

/// Notes all operations on the files of a folder from now on.
void Record(std::string const& folder);
std::vector<Operation> StopRecording();

} // namespace Tests::SystemCalls
