#include "suite/sample/clients.h"

#include <array>
#include <numeric>

namespace quillet::suite::sample {
namespace {

constexpr std::array<const char*, 64> kHouses = {
    "Avendra",  "Balmora",  "Charvila", "Devmira",  "Elavanti", "Falvera",   "Gavindra",
    "Harmeta",  "Ilvesh",   "Jaymora",  "Kelvani",  "Lavasri",  "Mandovil",  "Navrela",
    "Omkesta",  "Parnavi",  "D'Velmar", "Rajvela",  "Sanvira",  "Tarunesta", "Udvela",
    "Vasmira",  "Yashmeta", "Zarvana",  "Amrelti",  "Bhuvesta", "Chetmora",  "Dharvati",
    "Eshvela",  "Gomtara",  "Hemvara",  "Indrela",  "Jivanta",  "Kalmira",   "Lokvesta",
    "Mehvara",  "Nirvela",  "Ojasmi",   "Pratvila", "Rukmera",  "Sohvanta",  "Tejmora",
    "Umavesta", "Vanmela",  "Yogmira",  "Anjvela",  "Bilvara",  "Chanmeta",  "Dilvesta",
    "Girmora",  "Hansvela", "Ishmera",  "Jagvanta", "Kirmeli",  "Lilavesta", "Malvira",
    "Nandvela", "Padmera",  "Ranvesta", "Shilmora", "Trivela",  "Utmera",    "Vijvanta",
    "Zeenvara"};

constexpr std::array<const char*, 6> kTowns = {"Talgavan",   "Nevargarh", "Solampur",
                                               "Birvanagar", "Kelampet",  "Othavadi"};

using Words = std::array<const char*, 8>;

struct Dealings {
  Words customers;
  Words suppliers;
};

constexpr Dealings kDealings[] = {
    {{"Sarees", "Cloth Stores", "Garments", "Fashions", "Textiles", "Dresses", "Emporium",
      "Traders"},
     {"Fabrics", "Synthetics", "Yarns", "Weaving Works", "Processors", "Silk Mills", "Traders",
      "Textiles"}},
    {{"Hardware", "Tools Centre", "Engineers", "Builders", "Electricals", "Agro Works",
      "Fabricators", "Enterprises"},
     {"Steels", "Castings", "Metal Works", "Fasteners", "Industries", "Alloys", "Bearings",
      "Enterprises"}},
    {{"Medical Stores", "Chemists", "Pharmacy", "Medicos", "Drug House", "Nursing Home", "Clinic",
      "Surgicals"},
     {"Laboratories", "Remedies", "Formulations", "Healthcare", "Biotech", "Drugs", "Surgicals",
      "Pharma"}},
    {{"Constructions", "Foods", "Transport", "Hotels", "Exports", "Educational Trust", "Printers",
      "Agencies"},
     {"Stationers", "Computers", "Travels", "Caterers", "Couriers", "Systems", "Printers",
      "Services"}},
};

// Every number stands for one house, one trade and one town; the first hundreds name no town, and
// neighbouring numbers differ in house and trade.
std::string firm(const Words& words, int n) {
  constexpr int houses = static_cast<int>(kHouses.size());
  constexpr int trades = static_cast<int>(std::tuple_size_v<Words>);
  constexpr int stride = 11;
  static_assert(std::gcd(stride, houses * trades) == 1);
  const int number = n * stride % (houses * trades);
  const int house = number % houses;
  const int trade = number / houses;
  const int town = n / (houses * trades);
  std::string name = kHouses[static_cast<std::size_t>(house)];
  name += ' ';
  name += words[static_cast<std::size_t>((trade + house) % trades)];
  if (town > 0) {
    name += ", ";
    name += kTowns[static_cast<std::size_t>(town - 1) % kTowns.size()];
  }
  return name;
}

const Dealings& dealings(Line line) { return kDealings[static_cast<int>(line)]; }

constexpr const char* kMarket = "14 Cloth Market, Ring Road, Solampur";
constexpr const char* kEstate = "Plot 27, Industrial Estate, Birvanagar";

std::vector<SampleClient> makeClients() {
  using enum Ownership;
  return {
      {.code = "TAV01",
       .first = "Mohan",
       .middle = "Lal",
       .last = "Tavdekar",
       .father = "Ganesh Lal Tavdekar",
       .born = "14/08/1956",
       .address = kMarket,
       .groupCode = "TAV",
       .groupName = "Tavdekar Family",
       .company = "Bhaveli Cloth House",
       .trade = Trade::goods,
       .line = Line::cloth,
       .ownership = proprietor,
       .firstYear = 2005,
       .years = 4,
       .turnover = 18'400'000,
       .growth = 11,
       .suppliers = 12,
       .customers = 21,
       .omits = 4},
      {.code = "TAV02",
       .name = "Tavdekar Silk Weaving Mills Pvt. Ltd.",
       .born = "02/11/1994",
       .address = kEstate,
       .groupCode = "TAV",
       .groupName = "Tavdekar Family",
       .trade = Trade::manufacture,
       .line = Line::cloth,
       .ownership = company,
       .firstYear = 2005,
       .years = 4,
       .turnover = 96'500'000,
       .growth = 9,
       .suppliers = 9,
       .customers = 12,
       .omits = 6},
      // Has brought her papers, nothing more: no trial balance yet.
      {.code = "TAV03",
       .first = "Sunetra",
       .middle = "Mohan",
       .last = "Tavdekar",
       .father = "Prabhakar Salvekar",
       .born = "23/01/1961",
       .address = kMarket,
       .groupCode = "TAV",
       .groupName = "Tavdekar Family"},
      // The long one: a wholesaler with an account for every chemist it delivers to.
      {.code = "ORV01",
       .name = "Orvanti Pharma Distributors Pvt. Ltd.",
       .born = "19/06/1998",
       .address = "3rd Floor, Sanjivan Chambers, Station Road, Talgavan",
       .trade = Trade::goods,
       .line = Line::medicine,
       .ownership = company,
       .firstYear = 2008,
       .years = 1,
       .turnover = 214'000'000,
       .suppliers = 236,
       .lines = 2'000,
       .omits = 12},
      {.code = "DSK01",
       .name = "Deshvir and Kolhare",
       .born = "01/04/1999",
       .address = "Shop 6, Loha Bazaar, Nevargarh",
       .groupCode = "DSK",
       .groupName = "Deshvir Group",
       .trade = Trade::goods,
       .line = Line::hardware,
       .ownership = partnership,
       .owners = {{"Anant Deshvir", 45}, {"Prabhakar Kolhare", 35}, {"Vidya Deshvir", 20}},
       .firstYear = 2006,
       .years = 3,
       .turnover = 41'200'000,
       .growth = 14,
       .suppliers = 14,
       .customers = 18,
       .omits = 6},
      // The latest year is registered and waits for its figures.
      {.code = "DSK02",
       .name = "Deshvir Precision Tools",
       .born = "15/09/2003",
       .address = kEstate,
       .groupCode = "DSK",
       .groupName = "Deshvir Group",
       .trade = Trade::manufacture,
       .line = Line::hardware,
       .ownership = partnership,
       .owners = {{"Anant Deshvir", 60}, {"Milind Deshvir", 40}},
       .firstYear = 2006,
       .years = 3,
       .latestEmpty = true,
       .turnover = 23'700'000,
       .growth = 17,
       .suppliers = 8,
       .customers = 9,
       .omits = 4},
      {.code = "KIR01",
       .first = "Revathi",
       .last = "Kirmelkar",
       .father = "Shantaram Kirmelkar",
       .born = "30/05/1968",
       .address = "21/B, Chandrika Apartments, Kelampet",
       .company = "Kirmelkar Design Studio",
       .trade = Trade::service,
       .line = Line::advice,
       .ownership = proprietor,
       .firstYear = 2007,
       .years = 2,
       .turnover = 3'850'000,
       .growth = 22,
       .suppliers = 3,
       .customers = 6,
       .omits = 2},
      {.code = "NIV01",
       .name = "Nivrutti Engineering Consultants",
       .born = "12/07/2001",
       .address = "502 Vastu Arcade, Ring Road, Solampur",
       .trade = Trade::service,
       .line = Line::advice,
       .ownership = partnership,
       .owners = {{"Harish Nivrutkar", 50}, {"Leena Salvekar", 50}},
       .firstYear = 2005,
       .years = 4,
       .turnover = 9'600'000,
       .growth = 12,
       .suppliers = 5,
       .customers = 13,
       .omits = 4},
      {.code = "PAL01",
       .name = "Palvanti Agro Implements Ltd.",
       .born = "26/01/1989",
       .address = "Survey 118, Highway Naka, Othavadi",
       .trade = Trade::manufacture,
       .line = Line::hardware,
       .ownership = company,
       .firstYear = 2007,
       .years = 2,
       .turnover = 187'300'000,
       .growth = 7,
       .suppliers = 10,
       .customers = 12,
       .omits = 4},
      {.code = "GAV01",
       .first = "Iqbal",
       .middle = "Hasan",
       .last = "Gavandiwala",
       .father = "Hasan Ali Gavandiwala",
       .born = "09/12/1972",
       .address = "Opp. Old Bus Stand, Nevargarh",
       .company = "Gavandi Medical Agencies",
       .trade = Trade::goods,
       .line = Line::medicine,
       .ownership = proprietor,
       .firstYear = 2008,
       .years = 1,
       .turnover = 12'900'000,
       .suppliers = 11,
       .customers = 17,
       .omits = 3},
  };
}

const char* status(Ownership ownership) {
  switch (ownership) {
    case Ownership::partnership:
      return "Partnership Firm";
    case Ownership::company:
      return "Company";
    case Ownership::proprietor:
      break;
  }
  return "Individual";
}

}  // namespace

const std::vector<SampleClient>& sampleClients() {
  static const std::vector<SampleClient> clients = makeClients();
  return clients;
}

Client registerEntry(const SampleClient& client) {
  Client entry;
  entry.code = client.code;
  entry.name = client.name;
  entry.first = client.first;
  entry.middle = client.middle;
  entry.last = client.last;
  entry.status = status(client.ownership);
  entry.father = client.father;
  entry.born = client.born;
  entry.address = client.address;
  entry.groupCode = client.groupCode;
  entry.groupName = client.groupName;
  entry.company = client.company;
  return entry;
}

std::string customerName(Line line, int n) { return firm(dealings(line).customers, n); }

std::string supplierName(Line line, int n) { return firm(dealings(line).suppliers, n); }

}  // namespace quillet::suite::sample
