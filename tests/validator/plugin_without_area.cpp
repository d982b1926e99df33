// A shared library that is no settings plug-in.
extern "C" __attribute__((visibility("default"))) int somethingElse()
{
    return 42;
}
