// The entry of every test program but those of the version gate: generated code of this library's
// version runs in it, under the locale of the environment, which must not matter.

#include <ZqXmlLib9/Version.h>
#include <ZqXmlLib9/engine/GeneratorVersion.h>

#include <gtest/gtest.h>

#include <clocale>

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "");
    ZqXmlLib9::Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
