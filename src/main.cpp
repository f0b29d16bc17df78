// corvalin: with no arguments the wizard; with "input output template" the
// unattended run.
int main() { return 0; }
