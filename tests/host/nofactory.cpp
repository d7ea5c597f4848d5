// A shared library that is no add-in, even if it needs one.
extern "C" __attribute__((visibility("default"))) int somethingElse() {
    return 1;
}
