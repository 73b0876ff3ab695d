#include "suite/sample/chart.h"

#include <string_view>

namespace quillet::suite::sample {
namespace {

using enum Role;

constexpr Account kCommon[] = {
    {"Furniture and Fixtures", "FURNITURE AND FIXTURES", asset, 1'300, paise},
    {"Air Conditioners", "OFFICE EQUIPMENT", asset, 640, paise},
    {"Office Equipment", "OFFICE EQUIPMENT", asset, 380, paise},
    {"Computers and Printers", "COMPUTERS", asset, 720, paise},
    {"Motor Car", "VEHICLES", asset, 2'400, paise},
    {"Scooter", "VEHICLES", asset, 180, paise},
    {"Telephone Deposit", "DEPOSITS", lasting, 40, hundreds},
    {"Electricity Deposit", "DEPOSITS", lasting, 110, hundreds},
    {"Security Deposit for Premises", "DEPOSITS", lasting, 900, thousands},
    {"Fixed Deposit with Kaveripur Mercantile Bank", "FIXED DEPOSITS", deposits, 0, thousands},
    {"National Savings Certificates", "SAVINGS CERTIFICATES", lasting, 150, thousands},
    {"Cash in Hand", "CASH IN HAND", balance, 230, paise},
    {"Kaveripur Mercantile Bank, Current A/c", "BANK BALANCES", bank, 1'400, paise},
    {"Nandigram Co-operative Bank", "BANK BALANCES", balance, 310, paise},
    {"Prepaid Insurance", "PREPAID EXPENSES", balance, 85, rupees},
    {"Interest Accrued on Deposits", "INTEREST ACCRUED", balance, 30, paise},
    {"Tax Deducted at Source", "ADVANCE TAX AND TDS", balance, 340, rupees},
    {"Advance Income Tax", "ADVANCE TAX AND TDS", balance, 420, thousands},
    {"Staff Advances", "ADVANCES TO STAFF", balance, 120, hundreds},
    {"Salary Payable", "EXPENSES PAYABLE", balance, 480, rupees},
    {"Audit Fees Payable", "EXPENSES PAYABLE", balance, 70, hundreds},
    {"Electricity Charges Payable", "EXPENSES PAYABLE", balance, 45, rupees},
    {"Telephone Charges Payable", "EXPENSES PAYABLE", balance, 25, rupees},
    {"TDS Payable", "STATUTORY DUES", balance, 95, rupees},
    {"Provident Fund Payable", "STATUTORY DUES", balance, 130, rupees},
    {"Profession Tax Payable", "STATUTORY DUES", balance, 12, rupees},
    {"Car Loan from Nandigram Co-operative Bank", "VEHICLE LOANS", loan, 1'500, rupees},
    {"Electricity Charges", "ELECTRICITY AND WATER", flow, 260, rupees},
    {"Water Charges", "ELECTRICITY AND WATER", flow, 30, rupees},
    {"Telephone Expenses", "TELEPHONE AND POSTAGE", flow, 210, paise},
    {"Postage and Courier", "TELEPHONE AND POSTAGE", flow, 75, rupees},
    {"Printing and Stationery", "PRINTING AND STATIONERY", flow, 145, paise},
    {"Conveyance", "TRAVELLING AND CONVEYANCE", flow, 160, rupees},
    {"Travelling Expenses", "TRAVELLING AND CONVEYANCE", flow, 240, paise},
    {"Petrol and Vehicle Maintenance", "VEHICLE RUNNING EXPENSES", flow, 190, paise},
    {"Repairs to Office Premises", "REPAIRS AND MAINTENANCE", flow, 130, paise},
    {"Computer Maintenance", "REPAIRS AND MAINTENANCE", flow, 60, rupees},
    {"Insurance", "INSURANCE", flow, 110, rupees},
    {"Legal and Professional Fees", "LEGAL AND PROFESSIONAL CHARGES", flow, 150, hundreds},
    {"Audit Fees", "AUDIT FEES", flow, 75, hundreds},
    {"Books and Periodicals", "OFFICE EXPENSES", flow, 22, rupees},
    {"Office Expenses", "OFFICE EXPENSES", flow, 135, paise},
    {"Staff Welfare", "STAFF WELFARE", flow, 140, paise},
    {"Bonus to Staff", "SALARIES AND BONUS", flow, 260, hundreds},
    {"Contribution to Provident Fund", "CONTRIBUTION TO PROVIDENT FUND AND ESI", flow, 290, rupees},
    {"Bank Charges", "BANK CHARGES", flow, 55, paise},
    {"Interest on Car Loan", "INTEREST TO BANKS", flow, 140, paise},
    {"Profession Tax", "RATES AND TAXES", flow, 5, rupees},
    {"Municipal Taxes", "RATES AND TAXES", flow, 48, rupees},
    {"Donations", "DONATIONS", flow, 25, hundreds},
    {"Rounding Off", "MISCELLANEOUS EXPENSES", flow, 1, paise},
    {"Interest on Fixed Deposits", "INTEREST RECEIVED", flow, 130, paise},
    {"Depreciation", "DEPRECIATION", depreciation, 0, paise},
};

constexpr Account kGoods[] = {
    {"Sales (Local)", "SALES", sales, 78'000, paise},
    {"Sales (Inter-State)", "SALES", sales, 23'500, paise},
    {"Sales Returns", "SALES", sales, -1'500, paise},
    {"Purchases (Local)", "PURCHASES", purchases, 64, paise},
    {"Purchases (Inter-State)", "PURCHASES", purchases, 38, paise},
    {"Purchase Returns", "PURCHASES", purchases, -2, paise},
    {"Freight Inward", "FREIGHT AND OCTROI", direct, 620, paise},
    {"Octroi", "FREIGHT AND OCTROI", direct, 410, rupees},
    {"Loading and Unloading", "DIRECT EXPENSES", direct, 150, rupees},
    {"Cash Credit from Kaveripur Mercantile Bank", "CASH CREDIT AND OVERDRAFT", overdraft, 3'800,
     paise},
    {"Advance from Customers", "ADVANCES FROM CUSTOMERS", balance, 260, rupees},
    {"VAT Payable", "STATUTORY DUES", balance, 330, rupees},
    {"VAT Input Credit", "INPUT TAX CREDIT", balance, 120, rupees},
    {"Salaries", "SALARIES AND BONUS", flow, 1'900, hundreds},
    {"Godown Rent", "RENT", flow, 380, monthly},
    {"Shop Rent", "RENT", flow, 420, monthly},
    {"Advertisement", "ADVERTISEMENT AND SALES PROMOTION", flow, 240, rupees},
    {"Sales Promotion", "ADVERTISEMENT AND SALES PROMOTION", flow, 95, paise},
    {"Freight Outward", "FREIGHT OUTWARD", flow, 470, paise},
    {"Commission on Sales", "COMMISSION AND BROKERAGE", flow, 310, paise},
    {"Discount Allowed", "DISCOUNT AND REBATE", flow, 140, paise},
    {"Bad Debts", "BAD DEBTS", flow, 60, paise},
    {"Interest on Cash Credit", "INTEREST TO BANKS", flow, 460, paise},
    {"Discount Received", "COMMISSION AND DISCOUNT RECEIVED", flow, 210, paise},
};

constexpr Account kManufacture[] = {
    {"Sales of Finished Goods", "SALES", sales, 71'000, paise},
    {"Sales of Scrap", "SALES", sales, 900, paise},
    {"Export Sales", "EXPORT SALES", sales, 22'000, paise},
    {"Job Work Receipts", "JOB WORK RECEIPTS", sales, 6'100, paise},
    {"Purchases of Raw Material", "PURCHASES OF RAW MATERIAL", purchases, 88, paise},
    {"Purchases of Packing Material", "PURCHASES OF RAW MATERIAL", purchases, 12, paise},
    {"Freight Inward", "FREIGHT AND OCTROI", direct, 780, paise},
    {"Factory Wages", "FACTORY WAGES", direct, 6'400, rupees},
    {"Power Charges", "POWER AND FUEL", direct, 3'900, rupees},
    {"Diesel for Generator", "POWER AND FUEL", direct, 620, paise},
    {"Stores and Spares Consumed", "STORES AND SPARES CONSUMED", direct, 1'350, paise},
    {"Job Work Charges", "JOB WORK CHARGES", direct, 1'800, paise},
    {"Repairs to Machinery", "REPAIRS TO MACHINERY", direct, 890, paise},
    {"Factory Land", "LAND", lasting, 4'200, thousands},
    {"Factory Building", "BUILDING", asset, 9'500, paise},
    {"Plant and Machinery", "PLANT AND MACHINERY", asset, 16'000, paise},
    {"Electrical Installation", "PLANT AND MACHINERY", asset, 1'900, paise},
    {"Tools and Dies", "PLANT AND MACHINERY", asset, 1'150, paise},
    {"Term Loan for Machinery", "TERM LOANS", loan, 9'000, rupees},
    {"Term Loan for Building", "TERM LOANS", loan, 4'500, rupees},
    {"Cash Credit from Kaveripur Mercantile Bank", "CASH CREDIT AND OVERDRAFT", overdraft, 5'200,
     paise},
    {"Advance from Customers", "ADVANCES FROM CUSTOMERS", balance, 540, rupees},
    {"Excise Duty Credit", "INPUT TAX CREDIT", balance, 610, rupees},
    {"VAT Payable", "STATUTORY DUES", balance, 280, rupees},
    {"ESI Payable", "STATUTORY DUES", balance, 55, rupees},
    {"Wages Payable", "EXPENSES PAYABLE", balance, 510, rupees},
    {"Provision for Gratuity", "PROVISION FOR GRATUITY", balance, 380, rupees},
    {"Salaries", "SALARIES AND BONUS", flow, 2'100, hundreds},
    {"Contribution to ESI", "CONTRIBUTION TO PROVIDENT FUND AND ESI", flow, 240, rupees},
    {"Office Rent", "RENT", flow, 340, monthly},
    {"Security Charges", "OFFICE EXPENSES", flow, 230, hundreds},
    {"Advertisement", "ADVERTISEMENT AND SALES PROMOTION", flow, 180, rupees},
    {"Exhibition Expenses", "ADVERTISEMENT AND SALES PROMOTION", flow, 150, paise},
    {"Freight Outward", "FREIGHT OUTWARD", flow, 910, paise},
    {"Commission on Sales", "COMMISSION AND BROKERAGE", flow, 720, paise},
    {"Discount and Rebate", "DISCOUNT AND REBATE", flow, 260, paise},
    {"Interest on Term Loans", "INTEREST TO BANKS", flow, 1'300, paise},
    {"Interest on Cash Credit", "INTEREST TO BANKS", flow, 640, paise},
    {"Exchange Difference", "MISCELLANEOUS INCOME", flow, 90, paise},
};

constexpr Account kService[] = {
    {"Professional Fees Received", "PROFESSIONAL RECEIPTS", sales, 86'000, rupees},
    {"Retainership Fees", "PROFESSIONAL RECEIPTS", sales, 12'500, hundreds},
    {"Reimbursement of Expenses", "PROFESSIONAL RECEIPTS", sales, 1'500, paise},
    {"Overdraft from Kaveripur Mercantile Bank", "CASH CREDIT AND OVERDRAFT", overdraft, 0, paise},
    {"Advance from Clients", "ADVANCES FROM CUSTOMERS", balance, 1'100, rupees},
    {"Service Tax Payable", "STATUTORY DUES", balance, 1'900, rupees},
    {"Service Tax Credit", "INPUT TAX CREDIT", balance, 420, rupees},
    {"Units of Navsanchay Growth Fund", "SHARES AND MUTUAL FUNDS", lasting, 14'000, paise},
    {"Salaries", "SALARIES AND BONUS", flow, 23'000, hundreds},
    {"Stipend to Trainees", "SALARIES AND BONUS", flow, 2'400, hundreds},
    {"Office Rent", "RENT", flow, 5'200, monthly},
    {"Internet Charges", "TELEPHONE AND POSTAGE", flow, 340, rupees},
    {"Membership and Subscription", "OFFICE EXPENSES", flow, 290, rupees},
    {"Seminar and Training", "OFFICE EXPENSES", flow, 480, rupees},
    {"Software Licences", "OFFICE EXPENSES", flow, 910, paise},
    {"Sub-contract Fees", "DIRECT EXPENSES", flow, 6'800, rupees},
    {"Outstation Travel", "TRAVELLING AND CONVEYANCE", flow, 2'600, paise},
    {"Business Promotion", "ADVERTISEMENT AND SALES PROMOTION", flow, 760, paise},
    {"Dividend Received", "MISCELLANEOUS INCOME", flow, 210, paise},
};

constexpr Account kProprietor[] = {
    {"Loan from Relatives", "LOANS FROM RELATIVES", lasting, 900, thousands},
};

constexpr Account kPartnership[] = {
    {"Loan from Relatives", "LOANS FROM RELATIVES", lasting, 1'300, thousands},
    {"Remuneration to Partners", "REMUNERATION TO DIRECTORS AND PARTNERS", flow, 620, monthly},
    {"Interest on Partners' Capital", "INTEREST ON PARTNERS CAPITAL", flow, 540, rupees},
    {"Income Tax for the Year", "INCOME TAX FOR THE YEAR", taxCharge, 30, thousands},
    {"Provision for Income Tax", "PROVISION FOR INCOME TAX", taxDue, 0, thousands},
};

constexpr Account kCompany[] = {
    {"Equity Share Capital", "SHARE CAPITAL", lasting, 6'000, lakhs},
    {"General Reserve", "GENERAL RESERVE", lasting, 1'200, thousands},
    {"Loan from Directors", "LOANS FROM DIRECTORS AND PARTNERS", lasting, 2'100, thousands},
    {"Inter-Corporate Loan", "LOANS FROM OTHERS", loan, 1'400, thousands},
    {"Preliminary Expenses", "PRELIMINARY EXPENSES", lasting, 90, rupees},
    {"Deferred Tax Liability", "DEFERRED TAX LIABILITY", lasting, 610, rupees},
    {"Remuneration to Directors", "REMUNERATION TO DIRECTORS AND PARTNERS", flow, 830, monthly},
    {"Filing Fees", "RATES AND TAXES", flow, 9, rupees},
    {"Interest to Directors", "INTEREST TO OTHERS", flow, 190, rupees},
    {"Income Tax for the Year", "INCOME TAX FOR THE YEAR", taxCharge, 33, thousands},
    {"Provision for Income Tax", "PROVISION FOR INCOME TAX", taxDue, 0, thousands},
};

constexpr Stock kGoodsStock[] = {
    {"Opening Stock", "OPENING STOCK - TRADED GOODS", "Closing Stock",
     "CLOSING STOCK - TRADED GOODS", 9'400},
};

constexpr Stock kManufactureStock[] = {
    {"Opening Stock of Raw Material", "OPENING STOCK - RAW MATERIAL",
     "Closing Stock of Raw Material", "CLOSING STOCK - RAW MATERIAL", 4'100},
    {"Opening Work in Progress", "OPENING STOCK - WORK IN PROGRESS", "Closing Work in Progress",
     "CLOSING STOCK - WORK IN PROGRESS", 1'600},
    {"Opening Stock of Finished Goods", "OPENING STOCK - FINISHED GOODS",
     "Closing Stock of Finished Goods", "CLOSING STOCK - FINISHED GOODS", 5'200},
};

constexpr Business kBusinesses[] = {
    {kGoods, kGoodsStock, 12, 13'000, 7'800, 1'500, "SUNDRY DEBTORS", "SUNDRY CREDITORS FOR GOODS"},
    {kManufacture, kManufactureStock, 20, 15'500, 8'900, 1'500, "SUNDRY DEBTORS",
     "SUNDRY CREDITORS FOR GOODS"},
    {kService, {}, 100, 16'000, 1'400, 25'000, "SUNDRY DEBTORS", "SUNDRY CREDITORS FOR EXPENSES"},
};

struct Rate {
  std::string_view group;
  int percent;
};

constexpr Rate kDepreciation[] = {
    {"BUILDING", 10},         {"PLANT AND MACHINERY", 15}, {"FURNITURE AND FIXTURES", 10},
    {"OFFICE EQUIPMENT", 15}, {"COMPUTERS", 60},           {"VEHICLES", 15},
};

}  // namespace

const Business& business(Trade trade) { return kBusinesses[static_cast<int>(trade)]; }

std::span<const Account> commonAccounts() { return kCommon; }

std::span<const Account> ownershipAccounts(Ownership ownership) {
  switch (ownership) {
    case Ownership::partnership:
      return kPartnership;
    case Ownership::company:
      return kCompany;
    case Ownership::proprietor:
      break;
  }
  return kProprietor;
}

int depreciationRate(const char* group) {
  for (const Rate& rate : kDepreciation)
    if (rate.group == group) return rate.percent;
  return 0;
}

}  // namespace quillet::suite::sample
