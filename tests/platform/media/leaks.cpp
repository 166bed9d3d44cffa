/// The H.265 library keeps a few texts and rows of each encoder it closes; the leak check is for our own memory.
extern "C" const char *__lsan_default_suppressions() // NOLINT: the name the sanitizer looks for
{
    return "leak:libx265";
}
