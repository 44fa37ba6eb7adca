// Fuzzes the item record reader with arbitrary Stack.bin and Memory.bin
// contents. Besides surviving every input, whatever is read must write back
// to bytes that read again to exactly the same bytes.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "store/item_record.h"

namespace {

using namespace quorvel;

std::string stackBytes(const ItemList& stack) {
    std::ostringstream out(std::ios::binary);
    WriteStack(out, stack);
    return out.str();
}

std::string memoryBytes(const std::vector<Memory>& memories) {
    std::ostringstream out(std::ios::binary);
    WriteMemories(out, memories);
    return out.str();
}

void checkStack(const std::string& bytes) {
    std::istringstream in(bytes, std::ios::binary);
    ItemList stack;
    ReadStack(in, stack);
    const std::string written = stackBytes(stack);
    std::istringstream again(written, std::ios::binary);
    ItemList reread;
    ReadStack(again, reread);
    if (reread.count() != stack.count() || stackBytes(reread) != written) std::abort();
}

void checkMemories(const std::string& bytes) {
    std::istringstream in(bytes, std::ios::binary);
    std::vector<Memory> memories;
    ReadMemories(in, memories);
    const std::string written = memoryBytes(memories);
    std::istringstream again(written, std::ios::binary);
    std::vector<Memory> reread;
    ReadMemories(again, reread);
    // Null values are not written, so only the bytes must agree.
    if (memoryBytes(reread) != written) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    checkStack(bytes);
    checkMemories(bytes);
    return 0;
}
