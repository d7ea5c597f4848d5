// An add-in that needs an operation which this version of the library does not have.
extern "C" int ovsettingsOperationOfALaterVersion();

extern "C" __attribute__((visibility("default"))) void* getFactory() {
    return ovsettingsOperationOfALaterVersion() ? nullptr : nullptr;
}
