#include "driver/Department.h"
#include "support/PrintQt.h"
#include "support/ProgramDirectoryAt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class Department : public testing::Test {
  protected:
    QString Path() const { return mFolder.filePath(u"tarvenaux.ini"_s); }
    QByteArray Content() const {
        QFile file(Path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir mFolder;
    const Seam<QString()>::Replacement mDirectory = ProgramDirectoryAt(mFolder.path());
};

TEST_F(Department, IsWrittenWhereTheFileIsMissing) {
    EXPECT_EQ(ProvideDepartment(), u""_s);
    EXPECT_EQ(Content(), "DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
}

TEST_F(Department, OfAUserStaysAsItIs) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("DeptCode = LB\n");
    file.close();
    EXPECT_EQ(ProvideDepartment(), u""_s);
    EXPECT_EQ(Content(), "DeptCode = LB\n");
}

TEST_F(Department, ThatCannotBeWrittenIsTold) {
    const auto directory = ProgramDirectoryAt(mFolder.filePath(u"gone"_s));
    EXPECT_TRUE(ProvideDepartment().startsWith(u"cannot write "_s)) << ProvideDepartment().toStdString();
}

} // namespace
