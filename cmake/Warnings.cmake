# What this project asks of itself; who builds the library as a part of theirs is spared.
set(ZQXMLLIB9_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor)
