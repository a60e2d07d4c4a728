#include "support/hospital/HospitalTest.h"

#include <sodium.h>

using namespace Qt::StringLiterals;

namespace {

struct TrialUser {
    QString id;
    const char* password;
    QString department;
};

using Users = HospitalTest;

TEST_F(Users, EachSignsOnWithHisPasswordForHisDepartment) {
    ASSERT_GE(sodium_init(), 0);
    for (const TrialUser& user :
         {TrialUser{u"NURSE"_s, "nurse", u"HC"_s}, TrialUser{u"CLERK"_s, "clerk", u"HC"_s},
          TrialUser{u"ADMIN"_s, "admin", u"*"_s}, TrialUser{u"LAB"_s, "lab", u"LB"_s}}) {
        const QString where = u" WHERE EmployeeID = '%1'"_s.arg(user.id);
        const QByteArray hash =
            Cell(u"SELECT PasswordHash FROM PASSWORD..tbPasswordMain"_s + where).toLatin1();
        EXPECT_EQ(crypto_pwhash_str_verify(hash.constData(), user.password, strlen(user.password)), 0)
            << user.password;
        EXPECT_NE(crypto_pwhash_str_verify(hash.constData(), "other", 5), 0);
        EXPECT_EQ(Cell(u"SELECT DeptCode FROM PASSWORD..tbPasswordDept"_s + where), user.department);
        EXPECT_EQ(Cell(u"SELECT Active FROM PASSWORD..tbPasswordMain"_s + where), u"True"_s);
    }
}

TEST_F(Users, PasswordsCostWhatTheSignOnExpects) {
    for (const QStringList& row : Rows(u"SELECT PasswordHash FROM PASSWORD..tbPasswordMain"_s))
        EXPECT_EQ(crypto_pwhash_str_needs_rehash(row[0].toLatin1().constData(),
                                                 crypto_pwhash_OPSLIMIT_INTERACTIVE,
                                                 crypto_pwhash_MEMLIMIT_INTERACTIVE),
                  0);
}

} // namespace
