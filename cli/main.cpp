// togu: runs the system's commands on a drawing, from a script or at the keyboard.
int main() { return 0; }
