// What makes a library that can be loaded and is none of VISA.
extern "C" __attribute__((visibility("default"))) int noVisa()
{
    return 0;
}
