// An algorithm library as a host would ship one: the loader only needs "create_algorithm".

namespace {

struct Algorithm {
    const char* name;
    int calls;
};

} // namespace

extern "C" __attribute__((visibility("default"))) void* create_algorithm() {
    static Algorithm algorithm{"test algorithm", 0};
    ++algorithm.calls;
    return &algorithm;
}
