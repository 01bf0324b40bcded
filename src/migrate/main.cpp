#include <cstdio>

int main() {
    std::puts("torvel-migrate");
    return 0;
}
