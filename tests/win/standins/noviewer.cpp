// A library without the entry point of the help viewer.

extern "C" __declspec(dllexport) int Nothing()
{
    return 0;
}
