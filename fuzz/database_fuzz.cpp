// The reader of design databases.

#include "fuzz/support.h"
#include "suite/kdsclient.h"

using fuzz::require;

namespace {

void readBlocks(const std::string& path) {
    iKDS::KDSPI database;
    if (!database.AttachSubClient("fuzz", path))
        return;
    iKDS::ContainerT<iKDS::ISnapshot> snapshot;
    const iKDS::Result found = database.GetSnapshotByName("Orv", snapshot);
    require(static_cast<bool>(found) == static_cast<bool>(snapshot));
    if (!found)
        return;
    iKDS::ListT<iKDS::BlockInfo> blocks;
    const iKDS::Result read = snapshot->GetListBlocks(blocks);
    require(read || !read.GetDescription().empty());
    std::size_t bytes = 0;
    for (const iKDS::BlockInfo& block : blocks)
        bytes += block.name.size();
    require(blocks.GetCount() <= 1'000'000 && bytes <= 64u << 20);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::File file("fuzzed.kds");
    file.write(fuzz::textOf(data, size));
    try {
        readBlocks(file.path());
    } catch (const iKDS::Exception& refusal) {
        require(refusal.GetResult().GetDescription().starts_with(file.path()));
    }
    // What a database of another journal mode leaves would belong to the next input.
    for (const char* ending : {"-wal", "-shm"})
        ::unlink((file.path() + ending).c_str());
    return 0;
}
