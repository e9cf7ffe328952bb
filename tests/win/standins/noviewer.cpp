// A library that the viewer's entry point is not in.

extern "C" __declspec(dllexport) int Nothing()
{
    return 0;
}
