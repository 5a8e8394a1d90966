// A stream to a file that was opened again knew of the last write to the former file: the new one
// began with as many NULs, or failed as that had.

#include "support/Print.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

using namespace ZqXmlLib9;

TEST(Regress, AReopenedFileBeginsAnew)
{
    const CTempFile file("old");
    const std::u16string name = file.GetName();
    for (const bool isClosed : {false, true}) {
        CFileTextStream stream(name.c_str(), XmlEncoding_UTF8);
        stream.Open();
        stream.WriteString(u"former\xD800");
        stream.Flush();
        if (isClosed) {
            EXPECT_THROW(stream.Close(), CZqInvalidValueException);
        }
        stream.Open();
        stream.WriteString(u"new");
        stream.Close();
        EXPECT_EQ(file.GetContent(), "new");
    }
}
