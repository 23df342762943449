// orders.cpp - the program whose objects docs/debugging.md shows; it stops in report().
#include <quelmcl/quelmcl.hpp>

#include <clocale>

struct Order {
  IString customer;
  IDate day;
  ITime hour;
};

[[gnu::noinline]] void report(const IException& failure)
{
  asm volatile("" : : "r"(&failure) : "memory");
}

int main()
{
  std::setlocale(LC_ALL, "C.UTF-8");
  const IString customer("Zo\xc3\xab M\xc3\xbcller");
  const IString key("a\0b\xc3!", 5);
  const ILinkedSequence<Order> orders{{customer, IDate(2, IDate::September, 1752), ITime(9, 30, 0)},
                                      {customer, IDate(14, IDate::September, 1752), ITime(14, 5, 30)}};
  ILinkedSequence<Order>::Cursor cursor = orders.newCursor();
  cursor.setToLast();
  try {
    orders.elementAt(3);
  } catch (IInvalidRequest& failure) {
    failure.setText("while looking for the third order").addLocation(QUELMCL_LOCATION());
    asm volatile("" : : "r"(&customer), "r"(&key), "r"(&orders), "r"(&cursor) : "memory");
    report(failure);
  }
}
