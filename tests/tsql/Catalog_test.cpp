#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "trial/sqlite/FileSchema.h"
#include "tsql/Catalog.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TableDefinition Definition(const QString& database, const QString& name) {
    TableDefinition table;
    table.name.database = database;
    table.name.object = name;
    table.columns.push_back({u"Code"_s, SqlType::Text(4), true, false, nullptr});
    table.columns.push_back({u"a \"b\""_s, SqlType::Money(), true, false, nullptr});
    table.columns.push_back({u"Line"_s, SqlType::Int(), false, false, nullptr});
    table.keys.push_back({true, {u"code"_s, u"Line"_s}});
    return table;
}

ObjectName Name(const QString& database, const QString& owner, const QString& object) {
    return {database, owner, object, {}};
}

} // namespace

TEST(CatalogTest, FindsTablesInAnyCase) {
    Catalog catalog;
    catalog.AddTable(Definition(u"BILLING"_s, u"tbX"_s));
    EXPECT_TRUE(catalog.FindTable(Name(u"billing"_s, {}, u"TBX"_s), {}));
    EXPECT_TRUE(catalog.FindTable(Name(u"Billing"_s, u"DBO"_s, u"tbx"_s), {}));
    EXPECT_TRUE(catalog.FindTable(Name({}, {}, u"tbX"_s), u"BILLING"_s));
    EXPECT_FALSE(catalog.FindTable(Name({}, {}, u"tbX"_s), u"PASSWORD"_s));
    EXPECT_FALSE(catalog.FindTable(Name(u"BILLING"_s, u"sys"_s, u"tbX"_s), {}));
}

TEST(CatalogTest, OneNameInTwoDatabasesIsTwoTables) {
    Catalog catalog;
    catalog.AddTable(Definition(u"BILLING"_s, u"tbX"_s));
    catalog.AddTable(Definition(u"PASSWORD"_s, u"tbX"_s));
    EXPECT_EQ(FailureOf([&] { catalog.AddTable(Definition(u"billing"_s, u"TBX"_s)); }).number, 2714);
}

TEST(CatalogTest, ALaterProcedureReplacesTheFormer) {
    Catalog catalog;
    catalog.SetProcedure({u"A"_s, u"p"_s, u"first"_s});
    catalog.SetProcedure({u"a"_s, u"P"_s, u"second"_s});
    EXPECT_EQ(catalog.FindProcedure(Name(u"A"_s, {}, u"p"_s), {})->text, u"second"_s);
}

TEST(CatalogTest, ADatabaseIsThereWithItsFirstTableOrProcedure) {
    Catalog catalog;
    EXPECT_FALSE(catalog.HasDatabase(u"BILLING"_s));
    catalog.AddTable(Definition(u"BILLING"_s, u"tbX"_s));
    catalog.SetProcedure({u"RADIOLOGY"_s, u"p"_s, {}});
    EXPECT_TRUE(catalog.HasDatabase(u"billing"_s));
    EXPECT_TRUE(catalog.HasDatabase(u"Radiology"_s));
    EXPECT_FALSE(catalog.HasDatabase(u"BILL"_s));
}

TEST(CatalogTest, KeyColumnsAreNeverNull) {
    Catalog catalog;
    const Table& table = catalog.AddTable(Definition(u"A"_s, u"t"_s));
    EXPECT_FALSE(table.Find(u"CODE")->nullable);
    EXPECT_EQ(table.Find(u"Nothing"), nullptr);
}

TEST(FileSchemaTest, TablesAreNamedWithTheirDatabase) {
    Catalog catalog;
    EXPECT_EQ(CreateTableText(catalog.AddTable(Definition(u"A"_s, u"t"_s))),
              u"CREATE TABLE \"A..t\" (\"Code\" TEXT COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL, \"a "
              u"\"\"b\"\"\" INT, "
              "\"Line\" INT NOT NULL, PRIMARY KEY (\"Code\", \"Line\"))"_s);
}

TEST(FileSchemaTest, IndexesAreNamedWithTheirTable) {
    Catalog catalog;
    const Table& table = catalog.AddTable(Definition(u"A"_s, u"t"_s));
    IndexDefinition index{u"ix"_s, Name({}, {}, u"t"_s), true, {{u"code"_s, false}, {u"line"_s, true}}};
    EXPECT_EQ(CreateIndexText(index, table),
              u"CREATE UNIQUE INDEX \"A..t.ix\" ON \"A..t\" (\"Code\", \"Line\" DESC)"_s);
    EXPECT_EQ(NullKeyText(index, table), QString());
    index.columns[0].name = u"a \"b\""_s;
    EXPECT_EQ(NullKeyText(index, table),
              u"CREATE UNIQUE INDEX \"A..t.ix (NULL)\" ON \"A..t\" (ifnull(\"a \"\"b\"\"\", 0), "
              "\"a \"\"b\"\"\" IS NULL, \"Line\") WHERE \"a \"\"b\"\"\" IS NULL"_s);
    EXPECT_EQ(IndexName(u"A..t.ix (NULL)"_s, u"A..t"_s), u"ix"_s);
    EXPECT_EQ(IndexName(u"A..t.ix"_s, u"A..t"_s), u"ix"_s);
    index.columns[0].name = u"Nothing"_s;
    EXPECT_EQ(FailureOf([&] { CreateIndexText(index, table); }).number, 207);
}
