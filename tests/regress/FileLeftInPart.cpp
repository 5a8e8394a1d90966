// A file whose writing failed kept a part of the document, or all of it where only its closing
// failed, and one that could not be set up for writing was emptied.

#include "support/FileFault.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <gtest/gtest.h>

using namespace ZqXmlLib9;

TEST(Regress, AFileHoldsAllOfADocumentOrNone)
{
    for (long call = 0; call < 6; ++call) {
        const CTempFile file("old");
        const CBinaryData data(u"a document");
        const CFileBinaryStream stream(file.GetName().c_str(), XmlEncoding_UTF8, data);
        const CFileFault fault(CFileFault::Fail, call, ENOSPC);
        EXPECT_THROW(stream.WriteToFile(), CZqException) << fault.GetFailed();
        EXPECT_EQ(file.GetContent(), call < 5 ? "old" : "") << fault.GetFailed();
    }
}
