// By the name of a library that everybody needs, and without anything of it.
int ovForeign() {
    return 0;
}
