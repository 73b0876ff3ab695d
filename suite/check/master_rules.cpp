#include "suite/check/master_rules.h"

#include "suite/schema_tables.h"

namespace quillet::suite::check {
namespace {

// A master: its table, the columns of id and name, and what one of its rows is called.
struct Master {
  std::string table, id, name, kind;
  std::string equal;    // what equal rows agree in, to the byte
  std::string several;  // what helps when one id has several names
  std::string alike;    // what helps when several ids have one name; "" when they may
};

const Master all[] = {
    {"Mast_Part", "PartId", "Particular", "ledger", "PartId,binary Particular",
     "\"Refresh Data\" on the home form keeps one of them.",
     "Link them in the ledger master, or rename one."},
    {"Mast_AllGrp", "ALLID", "ALLGRP", "group", "ALLID,GID,binary ALLGRP,UserGrp",
     "A backup from before may tell which is right.",
     "Merge them in the group master, or rename one."},
    {"Mast_Gunder", "GId", "Gunder", "primary group", "GId,binary Gunder,ggid",
     "A backup from before may tell which is right.", ""},
    {"RawMatGrpM", "GrpId", "GrpHead", "raw-material heading", "GrpId,binary GrpHead,GrpType",
     "A backup from before may tell which is right.", ""},
};

std::string number(const Recordset& rows, int column) {
  return std::to_string(rows.integer(column));
}

// Equal rows: the first stays.
void examineEqualRows(Database& database, const Master& master, const Place& place,
                      Examined& examined) {
  const std::string key = rowIdColumn;
  const RecordsetPtr rows =
      database.query("select * from (select " + key + ',' + master.id + ',' + master.name +
                     ",row_number() over (partition by " + master.equal + " order by " + key +
                     ") nth from " + master.table + ") m where nth>1 order by " + key);
  for (; !rows->EOF_(); rows->MoveNext()) {
    examined.addMendable(place, "equal rows",
                         "The " + master.kind + ' ' + number(*rows, 1) + ", " + rows->text(2) +
                             ", stands in the master once more.",
                         "Mending keeps one row.");
    examined.changes.push_back("delete from " + master.table + " where " + key + '=' +
                               number(*rows, 0));
  }
}

void examineIds(Database& database, const Master& master, const Place& place, Examined& examined) {
  const RecordsetPtr rows =
      database.query("select " + master.id + ",convert(group_concat(distinct binary " +
                     master.name + " separator ', ') using utf8mb4) from " + master.table +
                     " group by " + master.id + " having count(distinct " + master.equal + ")>1");
  for (; !rows->EOF_(); rows->MoveNext()) {
    examined.add(place, "several rows",
                 "The " + master.kind + ' ' + number(*rows, 0) +
                     " stands in the master several times: " + rows->text(1) + '.',
                 master.several);
  }
}

void examineNames(Database& database, const Master& master, const Place& place,
                  Examined& examined) {
  const RecordsetPtr rows =
      database.query("select min(" + master.name + "),group_concat(distinct " + master.id +
                     " separator ', ') from " + master.table + " group by " + master.name +
                     " having count(distinct " + master.id + ")>1");
  for (; !rows->EOF_(); rows->MoveNext()) {
    examined.add(place, "equal names",
                 "Several of the " + master.kind + "s have a name that the database takes for " +
                     rows->text(0) + ": " + rows->text(1) + '.',
                 master.alike);
  }
}

void examinePrimaryGroups(Database& database, Examined& examined) {
  const RecordsetPtr rows = database.query(
      "select g.ALLGRP from Mast_AllGrp g left join Mast_Gunder u on u.GId=g.GID where u.GId is "
      "null");
  for (; !rows->EOF_(); rows->MoveNext()) {
    examined.add({"", {}, "Mast_AllGrp"}, "primary group",
                 "The group " + rows->text(0) + " stands under no primary group.",
                 "Choose one in the group master.");
  }
}

// The group may have been lost, and its mapping come to use again with it. That of a merged group
// tells what was mapped.
void examineMapping(Database& database, const Masters& masters, Examined& examined) {
  const RecordsetPtr rows = database.query("select AllId from AllGrp_Map");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const Id group = rows->field(0) ? Id(rows->integer(0)) : Id();
    if (masters.hadGroup(group)) continue;
    examined.add({"", {}, "AllGrp_Map"}, "mapping",
                 "A mapping stands for " + masters.group(group) + ", which is not there.",
                 "A backup from before may tell what the group was.");
  }
}

}  // namespace

void examineMasters(Database& database, const Masters& masters, Examined& examined) {
  for (const Master& master : all) {
    const Place place{"", {}, master.table};
    examineEqualRows(database, master, place, examined);
    examineIds(database, master, place, examined);
    if (!master.alike.empty()) examineNames(database, master, place, examined);
  }
  examinePrimaryGroups(database, examined);
  examineMapping(database, masters, examined);
}

}  // namespace quillet::suite::check
