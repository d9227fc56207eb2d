// The smallest library that the tests can load.
extern "C"
#ifdef _WIN32
    __declspec(dllexport)
#endif
        int SampleAnswer() {
    return 42;
}
