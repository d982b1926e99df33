// A shared library that is no settings plug-in.
extern "C" int somethingElse()
{
    return 42;
}
