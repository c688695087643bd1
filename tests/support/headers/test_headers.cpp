// An empty source file. Compiling it makes the precompiled header with the headers that all tests include.
