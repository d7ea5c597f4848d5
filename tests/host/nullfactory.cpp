// An add-in whose factory cannot be had.
extern "C" __attribute__((visibility("default"))) void* getFactory() {
    return nullptr;
}
