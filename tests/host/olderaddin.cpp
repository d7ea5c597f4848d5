// An add-in that was built for another version of the interface. Its factory must not be asked for.
extern "C" __attribute__((visibility("default"))) int ovsettingsInterfaceVersion() {
    return 0;
}

extern "C" __attribute__((visibility("default"))) void* getFactory() {
    __builtin_trap();
}
