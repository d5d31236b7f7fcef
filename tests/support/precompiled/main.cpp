// Nothing but a program that the precompiled headers of the tests belong to.
int main() {}
