// A shared library that loads fine but offers no "create_algorithm".

extern "C" __attribute__((visibility("default"))) int something_else() {
    return 42;
}
