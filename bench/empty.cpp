// A program that ends as soon as it has started.
int main() { return 0; }
