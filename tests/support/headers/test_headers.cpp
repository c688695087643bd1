// Nothing but the headers that all tests include: compiled once, beside this file.
